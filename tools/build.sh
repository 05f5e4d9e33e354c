# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
# shellcheck shell=bash
#
# Configures and builds by preset. Sourced by run, test and .ci/run, which set `root`. Silent when nothing is to do;
# otherwise one line of progress, and the whole log when something fails.

# TonalithConfigure PRESET: only when the folder is new, was made somewhere else, or the presets have changed; changed
# CMake files are noticed by the build itself.
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

# TonalithShowProgress TITLE: copies ninja's counter from its input to one line on a terminal, to a few lines elsewhere.
TonalithShowProgress() {
  local title=$1 line share next=0 begun=0
  while IFS= read -r line; do
    # Very few steps are no news: the stage is looked at every time.
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

# TonalithBuild PRESET [TARGET...]: everything, or these targets.
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
