#!/usr/bin/env bash
# Start-up figures under Xvfb: the program against the floor (a bare Qt window with a tree
# of 34 entries and a text browser showing intro.html). Each is launched N times (default
# 5, in turns, after one unmeasured warm-up each), and each launch gives:
#   - launch -> window on screen: the X server's MapNotify for the window, taken as an
#     event (no polling, exact to the event);
#   - launch -> home page painted: the heading colour of the lessons' stylesheet (#1d5a34)
#     showing in at least 50 pixels of the window, read from the screen every 10 ms
#     (resolution: 10 ms plus one read of the window, about 2 ms);
#   - pixels changed: the window at first sight of the home page against the window 3 s
#     after the launch (0: the page was drawn once, and whole);
#   - memory 2 s after the launch, and again after a walk down the whole tree (Down pressed
#     33 times: every lesson, exercise and the sample game for the program, a lesson per
#     entry for the floor), over the program and all its child processes: VmRSS summed
#     (shared libraries counted once per process) and PSS summed (shared pages divided
#     among the processes; other Qt programs running at the time lower it).
# Then, where the browser-engine module is built, the program is launched N times more in a
# copy of its folder whose home page links to a page served by python3 on 127.0.0.1; the
# link is clicked and the time until the served page's colour shows is taken, the engine's
# start included.
# Every launch runs with a fresh, empty HOME (and XDG folders in it: Mesa, for one, looks
# past HOME); files found there afterwards are listed.
#
#   bench/startup/probe.sh [-n runs] [build folder]      (default: build/release)
#
# Needs the targets tablewright, tablewright_webpane, tablewright_app_files and
# startup_floor (which brings startup_watch) built in that folder, and xdotool.
set -euo pipefail

runs=5
while getopts n: option; do
  case $option in
    n) runs=$OPTARG ;;
    *) echo "usage: $0 [-n runs] [build folder]" >&2; exit 2 ;;
  esac
done
shift $((OPTIND - 1))
root=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "${1:-$root/build/release}" && pwd)

program=$build/app/tablewright
floor=$build/bench/startup/startup_floor
watch=$build/bench/startup/startup_watch
for file in "$program" "$floor" "$watch" "$build/app/html/intro.html"; do
  if [[ ! -e $file ]]; then
    echo "missing $file; build the targets tablewright tablewright_webpane tablewright_app_files startup_floor" >&2
    exit 1
  fi
done
heading=1d5a34
served=2266aa
linked=yes
if [[ ! -e $build/app/tablewright_webpane.so ]]; then
  echo "note: no web engine module: no outside page is timed" >&2
  linked=
fi

scratch=$(mktemp -d)
xvfb=
web=
cleanup() {
  [[ -n $xvfb ]] && kill "$xvfb" 2>/dev/null
  [[ -n $web ]] && kill "$web" 2>/dev/null
  rm -rf "$scratch"
}
trap cleanup EXIT

# An X server of our own, on a display number it picks itself.
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$scratch/display" 2>/dev/null &
xvfb=$!
for _ in $(seq 200); do [[ -s $scratch/display ]] && break; sleep 0.05; done
display=:$(head -n1 "$scratch/display")

timeout_ms=20000

# One launch; prints the watcher's line. $1: label, then the watcher's arguments.
launch() {
  local label=$1 home=$scratch/home-$1-$RANDOM$RANDOM
  shift
  mkdir -p "$home"
  env HOME="$home" XDG_CACHE_HOME="$home/.cache" XDG_CONFIG_HOME="$home/.config" \
    XDG_DATA_HOME="$home/.local/share" XDG_STATE_HOME="$home/.local/state" \
    DISPLAY="$display" QT_QPA_PLATFORM=xcb \
    "$watch" "$@" || true
  (cd "$home" && find . -type f | sed "s|^\.|  $label: ~|") >>"$scratch/written"
  rm -rf "$home"
}

field() { sed -n "s/.*\b$1=\([^ ]*\).*/\1/p" <<<"$2"; }

declare -A values
record() {  # $1: label, $2: watcher line
  local key
  for key in window_ms painted_ms changed_px rss_kb pss_kb walked_rss_kb walked_pss_kb processes linked_ms; do
    values[$1.$key]+="$(field "$key" "$2") "
  done
}

# median [min-max] of a list of numbers ("-" for a launch that missed).
summary() {
  tr ' ' '\n' <<<"$1" | { grep -v '^$' || true; } | sort -g | awk -v scale="$2" -v unit="$3" '
    $1 == "-" { missed++; next }
    { v[n++] = $1 / scale }
    END {
      if (n == 0) { print "none"; exit }
      m = (n % 2) ? v[(n - 1) / 2] : (v[n / 2 - 1] + v[n / 2]) / 2
      printf "%.0f%s [%.0f-%.0f]%s", m, unit, v[0], v[n - 1], missed ? " (" missed " missed)" : ""
    }'
}
median() { tr ' ' '\n' <<<"$1" | { grep -E '^[0-9.]+$' || true; } | sort -g | awk '{ v[n++] = $1 } END { if (n) print (n % 2) ? v[(n - 1) / 2] : (v[n / 2 - 1] + v[n / 2]) / 2 }'; }

: >"$scratch/written"
walk=(-k 33)
launch warmup "${walk[@]}" "Startup floor" "$heading" "$timeout_ms" "$floor" >/dev/null
launch warmup "${walk[@]}" "Tablewright.." "$heading" "$timeout_ms" "$program" >/dev/null
for run in $(seq "$runs"); do
  line=$(launch floor "${walk[@]}" "Startup floor" "$heading" "$timeout_ms" "$floor")
  record floor "$line"; echo "floor       #$run $line"
  line=$(launch tablewright "${walk[@]}" "Tablewright.." "$heading" "$timeout_ms" "$program")
  record tablewright "$line"; echo "tablewright #$run $line"
done

# The outside page: a copy of the application folder whose home page is one big link to a
# page served on 127.0.0.1, the link clicked where it lies in the window.
if [[ -n $linked ]]; then
  mkdir -p "$scratch/site"
  echo "<title>Served</title><body style='background:#$served'><h1>Served page</h1>" >"$scratch/site/page.html"
  python3 -u -m http.server 0 --bind 127.0.0.1 --directory "$scratch/site" >"$scratch/web.log" 2>&1 &
  web=$!
  port=
  for _ in $(seq 200); do
    port=$(sed -n 's/.* port \([0-9]*\).*/\1/p' "$scratch/web.log" | head -n1)
    [[ -n $port ]] && break
    sleep 0.05
  done
  cp -r "$build/app" "$scratch/app"
  echo "<p style='font-size:48px'><a href='http://127.0.0.1:$port/page.html'>Outside page</a></p><h1 style='color:#$heading'>Test lesson</h1>" >"$scratch/app/html/intro.html"
  for run in $(seq "$runs"); do
    line=$(launch linked -c 280,70 "Tablewright.." "$heading+$served" "$timeout_ms" "$scratch/app/tablewright")
    record outside "$line"; echo "outside     #$run $line"
  done
fi

echo
echo "Start-up on Xvfb ($display, 1280x1024x24), $runs launches each after a warm-up; load average: $(cut -d' ' -f1-3 /proc/loadavg)"
printf '%-26s %-28s %-28s %s\n' "median [min-max]" "floor" "tablewright" "ours / floor"
row() {  # $1: title, $2: key, $3: scale, $4: unit
  local program_median floor_median ratio
  floor_median=$(median "${values[floor.$2]}")
  program_median=$(median "${values[tablewright.$2]}")
  ratio=$(awk -v a="$program_median" -v b="$floor_median" 'BEGIN { if (a != "" && b > 0) printf "%.2fx", a / b; else print "-" }')
  printf '%-26s %-28s %-28s %s\n' "$1" "$(summary "${values[floor.$2]}" "$3" "$4")" \
    "$(summary "${values[tablewright.$2]}" "$3" "$4")" "$ratio"
}
row "window on screen" window_ms 1 " ms"
row "home page painted" painted_ms 1 " ms"
row "pixels changed by 3 s" changed_px 1 ""
row "RSS summed, 2 s" rss_kb 1024 " MB"
row "PSS summed, 2 s" pss_kb 1024 " MB"
row "RSS summed, tree walked" walked_rss_kb 1024 " MB"
row "PSS summed, tree walked" walked_pss_kb 1024 " MB"
row "processes" processes 1 ""
printf '%-26s %-28s %-28s\n' "outside page, from click" "-" "$(summary "${values[outside.linked_ms]}" 1 " ms")"

ratio() {  # $1: key; ours over the floor's, 99 when unknown
  awk -v a="$(median "${values[tablewright.$1]}")" -v b="$(median "${values[floor.$1]}")" \
    'BEGIN { print (a != "" && b > 0) ? a / b : 99 }'
}
target() {  # $1: text, $2: value, $3: limit, $4: format of the value
  awk -v v="$2" -v l="$3" -v t="$1" -v f="$4" 'BEGIN { printf "target %s: %s (" f ")\n", t, v <= l ? "met" : "MISSED", v }'
}
echo
target "window on screen within 1.2x of the floor" "$(ratio window_ms)" 1.2 "%.2fx"
target "home page drawn at first sight, unchanged 3 s later (pixels)" "$(median "${values[tablewright.changed_px]}")" 0 "%d"
for key in rss_kb pss_kb walked_rss_kb walked_pss_kb; do
  target "memory ($key) within 1.5x of the floor" "$(ratio $key)" 1.5 "%.2fx"
done
if [[ -n $linked ]]; then
  target "outside page drawn within 3 s of its link" "$(median "${values[outside.linked_ms]}")" 3000 "%.0f ms"
fi
if [[ -s $scratch/written ]]; then
  echo "files written in the fresh HOME:"
  sort -u "$scratch/written"
else
  echo "files written in the fresh HOME: none"
fi
