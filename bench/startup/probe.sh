#!/usr/bin/env bash
# Start-up figures under Xvfb: the program against the floor (a bare Qt window with a tree
# of 34 entries and a text browser showing intro.html). Each is launched N times (default
# 5, in turns, after one unmeasured warm-up each), and each launch gives:
#   - launch -> window on screen: the X server's MapNotify for the window, taken as an
#     event (no polling, exact to the event);
#   - launch -> home page painted: the heading colour of the lessons' stylesheet (#1d5a34)
#     showing in at least 50 pixels of the window, read from the screen every 10 ms
#     (resolution: 10 ms plus one read of the window, about 2 ms);
#   - launch -> page in the engine (the program only): the colour of the line under the
#     heading (#c9dcc9), which only the browser engine draws, the text pane does not;
#   - memory one second after the last of these, over the program and all its child
#     processes (the web engine's): VmRSS summed (shared libraries counted once per
#     process) and PSS summed (shared pages divided among the processes).
# Every launch runs with a fresh, empty HOME (and XDG folders in it: Mesa, for one, looks
# past HOME); files found there afterwards are listed.
#
#   bench/startup/probe.sh [-n runs] [build folder]      (default: build/release)
#
# Needs the targets tablewright, tablewright_webpane, tablewright_app_files and
# startup_floor (which brings startup_watch) built in that folder.
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
ours=$heading+c9dcc9
if [[ ! -e $build/app/tablewright_webpane.so ]]; then
  echo "note: no web engine module: the program shows the text pane" >&2
  ours=$heading
fi

scratch=$(mktemp -d)
xvfb=
cleanup() {
  [[ -n $xvfb ]] && kill "$xvfb" 2>/dev/null
  rm -rf "$scratch"
}
trap cleanup EXIT

# An X server of our own, on a display number it picks itself.
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$scratch/display" 2>/dev/null &
xvfb=$!
for _ in $(seq 200); do [[ -s $scratch/display ]] && break; sleep 0.05; done
display=:$(head -n1 "$scratch/display")

timeout_ms=20000

# One launch; prints the watcher's line. $1: label, $2: window name, $3: colours, $4: program.
launch() {
  local home=$scratch/home-$1-$RANDOM$RANDOM
  mkdir -p "$home"
  env HOME="$home" XDG_CACHE_HOME="$home/.cache" XDG_CONFIG_HOME="$home/.config" \
    XDG_DATA_HOME="$home/.local/share" XDG_STATE_HOME="$home/.local/state" \
    DISPLAY="$display" QT_QPA_PLATFORM=xcb \
    "$watch" "$2" "$3" "$timeout_ms" "$4" || true
  (cd "$home" && find . -type f | sed "s|^\.|  $1: ~|") >>"$scratch/written"
  rm -rf "$home"
}

field() { sed -n "s/.*\b$1=\([^ ]*\).*/\1/p" <<<"$2"; }

declare -A values
record() {  # $1: label, $2: watcher line
  local key
  for key in window_ms painted_ms engine_ms rss_kb pss_kb processes; do
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
launch warmup "Startup floor" "$heading" "$floor" >/dev/null
launch warmup "Tablewright.." "$ours" "$program" >/dev/null
for run in $(seq "$runs"); do
  line=$(launch floor "Startup floor" "$heading" "$floor")
  record floor "$line"; echo "floor       #$run $line"
  line=$(launch tablewright "Tablewright.." "$ours" "$program")
  record tablewright "$line"; echo "tablewright #$run $line"
done

echo
echo "Start-up on Xvfb ($display, 1280x1024x24), $runs launches each after a warm-up; load average: $(cut -d' ' -f1-3 /proc/loadavg)"
printf '%-22s %-28s %-28s %s\n' "median [min-max]" "floor" "tablewright" "ours / floor"
row() {  # $1: title, $2: key, $3: scale, $4: unit
  local program_median floor_median ratio
  floor_median=$(median "${values[floor.$2]}")
  program_median=$(median "${values[tablewright.$2]}")
  ratio=$(awk -v a="$program_median" -v b="$floor_median" 'BEGIN { if (a != "" && b > 0) printf "%.2fx", a / b; else print "-" }')
  printf '%-22s %-28s %-28s %s\n' "$1" "$(summary "${values[floor.$2]}" "$3" "$4")" \
    "$(summary "${values[tablewright.$2]}" "$3" "$4")" "$ratio"
}
row "window on screen" window_ms 1 " ms"
row "home page painted" painted_ms 1 " ms"
row "page in the engine" engine_ms 1 " ms"
row "memory, RSS summed" rss_kb 1024 " MB"
row "memory, PSS summed" pss_kb 1024 " MB"
row "processes" processes 1 ""

window_ratio=$(awk -v a="$(median "${values[tablewright.window_ms]}")" -v b="$(median "${values[floor.window_ms]}")" \
  'BEGIN { print (a != "" && b > 0) ? a / b : 99 }')
painted=$(median "${values[tablewright.painted_ms]}")
echo
awk -v r="$window_ratio" 'BEGIN { printf "target window on screen within 2x of the floor: %s (%.2fx)\n", r <= 2 ? "met" : "MISSED", r }'
awk -v p="${painted:-99999}" 'BEGIN { printf "target home page painted within 700 ms: %s (%.0f ms)\n", p <= 700 ? "met" : "MISSED", p }'
if [[ -s $scratch/written ]]; then
  echo "files written in the fresh HOME:"
  sort -u "$scratch/written"
else
  echo "files written in the fresh HOME: none"
fi
