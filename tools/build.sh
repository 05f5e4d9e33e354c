# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
# shellcheck shell=bash
#
# Configures and builds by preset. Sourced by run, test and .ci/run, which set `root`. Prints nothing if nothing needs
# building; otherwise one line of progress, and the complete log on failure.

# TonalithConfigure PRESET: only if the folder is new, was configured at another path, or the presets have changed; the
# build itself detects changed CMake files.
TonalithConfigure() {
  local preset=$1 folder=$root/build/$1 stamp=$root/build/$1/.configured fresh=() log
  if [[ -f $folder/CMakeCache.txt ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$folder/CMakeCache.txt"; then
    fresh=(--fresh)
  elif [[ -f $folder/build.ninja && -f $stamp && ! $root/CMakePresets.json -nt $stamp ]]; then
    return 0
  fi
  printf 'Configuring (%s)\n' "$preset"
  mkdir -p -- "$folder"
  log=$folder/configure.log
  if ! (cd -- "$root" && cmake --preset "$preset" "${fresh[@]}") >"$log" 2>&1 </dev/null; then
    cat -- "$log" >&2
    printf 'Configuring failed; the log is %s\n' "$log" >&2
    return 1
  fi
  touch -- "$stamp"
}

# TonalithShowProgress TITLE: shows the counter of ninja in one line on a terminal, otherwise in a few lines.
TonalithShowProgress() {
  local title=$1 line share next=0 begun=0
  while IFS= read -r line; do
    # Not for very few steps: the stage is checked in each build.
    [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]] && ((BASH_REMATCH[2] > 3)) || continue
    share=$((100 * BASH_REMATCH[1] / BASH_REMATCH[2]))
    if [[ -t 1 ]]; then
      printf '\r%s: %d of %d\033[K' "$title" "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
    elif ((share >= next)); then
      printf '%s: %d of %d\n' "$title" "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
      next=$((share - share % 25 + 25))
    fi
    begun=1
  done
  [[ ! -t 1 || $begun == 0 ]] || printf '\r\033[K'
}

# TonalithBuild PRESET [TARGET...]: builds all targets, or these.
TonalithBuild() {
  local preset=$1 log=$root/build/$1/build.log targets=()
  shift
  TonalithConfigure "$preset" || return 1
  [[ $# -eq 0 ]] || targets=(--target "$@")
  if ! (cd -- "$root" && cmake --build --preset "$preset" "${targets[@]}") 2>&1 </dev/null |
    tee -- "$log" | TonalithShowProgress "Building ($preset)"; then
    cat -- "$log" >&2
    printf 'Building failed; the log is %s\n' "$log" >&2
    return 1
  fi
}
