#!/usr/bin/env bash
# Installs a Tablewright .deb on this machine, checks what it laid out, starts the installed
# program under Xvfb, screenshots its window, closes it and then the promotion window that
# follows, and removes the package again:
#   tools/check_package.sh [PACKAGE.deb] [SCREENSHOT-FOLDER]
# Defaults: the package in build/package, screenshots in /tmp. Needs root (apt-get).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"

# Inside Xvfb: start /usr/bin/tablewright, look, close, and report how it went.
if [[ "${1:-}" == "--session" ]]; then
  shots="$2"
  wait_for_window() {  # NAME-REGEX SECONDS -> prints the window id
    local deadline=$((SECONDS + $2))
    while ((SECONDS < deadline)); do
      kill -0 "$pid" 2>/dev/null || { echo "the program ended early" >&2; return 1; }
      xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1 | grep . && return 0
      sleep 0.2
    done
    echo "no window named '$1' after $2 s" >&2
    return 1
  }
  /usr/bin/tablewright >"$shots/tablewright-package.log" 2>&1 &
  pid=$!
  trap 'kill "$pid" 2>/dev/null || true' EXIT
  started=$SECONDS
  main_window=$(wait_for_window '^Tablewright\.\.$' 30)
  echo "main window $main_window up after $((SECONDS - started)) s"
  # The lesson pane loads after the first paint, and the web engine may then give the window a
  # new X window: look it up again.
  sleep 3
  main_window=$(wait_for_window '^Tablewright\.\.$' 5)
  import -window root "$shots/tablewright-package-main.png"
  echo "window class: $(xprop -id "$main_window" WM_CLASS | cut -d= -f2)"
  python3 "$root/packaging/close_window.py" "$main_window"
  promotion=$(wait_for_window 'Play Poker Online' 15)
  echo "promotion window $promotion up"
  sleep 1
  import -window root "$shots/tablewright-package-promotion.png"
  python3 "$root/packaging/close_window.py" "$promotion"
  for _ in $(seq 50); do
    kill -0 "$pid" 2>/dev/null || break
    sleep 0.2
  done
  if kill -0 "$pid" 2>/dev/null; then
    echo "the program is still running after its windows were closed" >&2
    exit 1
  fi
  status=0
  wait "$pid" || status=$?
  trap - EXIT
  echo "program ended with status $status"
  exit "$status"
fi

built=("$root"/build/package/tablewright_*.deb)
deb="${1:-${built[0]}}"
shots="${2:-/tmp}"
[[ -f "$deb" ]] || { echo "usage: check_package.sh [PACKAGE.deb] [SCREENSHOT-FOLDER]" >&2; exit 2; }
deb="$(cd "$(dirname "$deb")" && pwd)/$(basename "$deb")"
mkdir -p "$shots"
shots="$(cd "$shots" && pwd)"

echo "== dpkg -I $(basename "$deb")"
dpkg -I "$deb"
if dpkg-query -W -f='${Status}' tablewright 2>/dev/null | grep -q "install ok installed"; then
  echo "tablewright is installed already; remove it first" >&2
  exit 1
fi

echo "== apt-get install"
export DEBIAN_FRONTEND=noninteractive
installed_packages() { dpkg-query -W -f='${db:Status-Abbrev} ${Package}\n' | awk '$1 == "ii" {print $2}' | sort; }
before="$(installed_packages)"
# Leaves the machine as it was: the package and whatever it pulled in go again.
remove_again() {
  echo "== apt-get purge"
  local added
  mapfile -t added < <(comm -13 <(echo "$before") <(installed_packages))
  ((${#added[@]} == 0)) || apt-get purge -y -qq "${added[@]}" >/dev/null
  echo "removed: ${added[*]:-nothing}"
}
trap remove_again EXIT
apt-get install -y -qq --no-install-recommends "$deb"

echo "== layout"
webpane=--no-webpane
dpkg -L tablewright | grep -q '/tablewright_webpane\.so$' && webpane=--webpane
python3 "$root/packaging/check_layout.py" /usr --app-source "$root/app" "$webpane"

echo "== start under Xvfb"
xvfb-run -a -s "-screen 0 1280x1024x24" env QT_QPA_PLATFORM=xcb \
  bash "$0" --session "$shots"
echo "screenshots: $shots/tablewright-package-main.png $shots/tablewright-package-promotion.png"
