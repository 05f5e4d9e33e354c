# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
# shellcheck shell=bash
#
# Opens the program on a virtual display, waits until its window is mapped and painted, and saves a screenshot.

# TonalithPicture FILE PROGRAM [ARGUMENT...]: prints FILE on success. Fails if no painted window appears within 30
# seconds. Leaves no process and no temporary file. Runs in a subshell, so its trap does not affect the caller.
TonalithPicture() (
  file=$1
  shift
  scratch=$(mktemp -d)
  screenProcess= programProcess=
  trap 'TonalithEnd "$programProcess"; TonalithEnd "$screenProcess"; rm -rf -- "$scratch"' EXIT

  # The server chooses a free display number and writes it when it accepts connections.
  exec {screen}< <(exec Xvfb -displayfd 1 -screen 0 1600x1000x24 -nolisten tcp -noreset 2>"$scratch/screen.log")
  screenProcess=$!
  if ! read -r -t 30 -u "$screen" display; then
    cat -- "$scratch/screen.log" >&2
    printf 'The virtual display did not start.\n' >&2
    exit 1
  fi
  mkdir -m 700 -- "$scratch/runtime"
  DISPLAY=:$display XDG_RUNTIME_DIR=$scratch/runtime QT_QPA_PLATFORM=xcb "$@" </dev/null >"$scratch/program.log" 2>&1 &
  programProcess=$!

  before=
  for ((tries = 0; tries < 300; tries++)); do
    kill -0 "$programProcess" 2>/dev/null || break
    now=$(TonalithGrab ":$display" "$scratch/window.png")
    # More colours than a blank window, and no change since the last screenshot: the window is painted.
    if [[ -n $now && ${now%% *} -ge 24 && $now == "$before" ]]; then
      mv -- "$scratch/window.png" "$file"
      printf 'There is no display here; a picture of the window is in %s\n' "$file"
      exit 0
    fi
    before=$now
    # Polls: a screenshot shows whether the window is painted.
    sleep 0.1
  done
  cat -- "$scratch/program.log" >&2
  printf 'Tonalith did not show its window.\n' >&2
  exit 1
)

# TonalithGrab DISPLAY FILE: saves a screenshot without the empty border and prints its number of colours and a
# checksum; prints nothing before a window is mapped.
TonalithGrab() {
  DISPLAY=$1 timeout 10 import -silent -window root -trim +repage "$2" >/dev/null 2>&1 &&
    identify -format '%k %#' "$2" 2>/dev/null || true
}

# TonalithEnd PROCESS: sends SIGTERM, waits up to five seconds, then sends SIGKILL.
TonalithEnd() {
  [[ -n $1 ]] || return 0
  kill -TERM "$1" 2>/dev/null || return 0
  for ((waited = 0; waited < 50; waited++)); do
    kill -0 "$1" 2>/dev/null || return 0
    # Polls: a shell cannot wait for a process of another one.
    sleep 0.1
  done
  kill -KILL "$1" 2>/dev/null || true
}
