# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
# shellcheck shell=bash
#
# The stricter checks, one function each. Sourced by .ci/run after tools/build.sh, with `root` set and as the folder.

# TonalithSources: the C++ files of the project, one a line.
TonalithSources() {
  if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    git ls-files --cached --others --exclude-standard -- '*.cpp' '*.h'
  else
    find src tests tools bench fuzz -name '*.cpp' -o -name '*.h'
  fi | sort
}

TonalithCheckHouse() {
  build/dev/tests/house/tonalith_house_tests
}

TonalithCheckFormat() {
  TonalithSources | xargs clang-format --dry-run -Werror
  printf '%d files\n' "$(TonalithSources | wc -l)"
}

# Over the compile commands of the dev preset, whose build has just made what moc makes: no third build is needed. Only
# what the compiler is really given is checked; headers are checked through the sources that include them. Tests are left
# to the tidy preset: reading GoogleTest and Qt for each of them takes longer than all the rest.
TonalithCheckTidy() {
  local sources commands=build/ci/commands
  mkdir -p -- "$commands"
  # Without what only the first compiler knows: its memory, and its headers compiled beforehand, for each source has to
  # name its own.
  sed -e 's| -Winvalid-pch -include [^ ]*||' -e 's| --param [^ ]*||' build/dev/compile_commands.json \
    >"$commands/compile_commands.json"
  sources=$(sed -n "s|^ *\"file\": \"$root/\(.*\)\",\{0,1\}$|\1|p" "$commands/compile_commands.json" |
    grep -v -e '^build/' -e '^tests/' | sort -u)
  printf '%d files\n' "$(wc -l <<<"$sources")"
  # The commands are the first compiler's; the second does not know every warning of it.
  xargs -P "$(nproc)" -n 1 clang-tidy -p "$commands" --quiet --extra-arg=-Wno-unknown-warning-option <<<"$sources" \
    2> >(grep -v 'generated\.$' >&2)
}

TonalithCheckSanitizers() {
  TonalithBuild sanitize
  ctest --preset sanitize
}

# What sounds is all that has threads of its own.
TonalithCheckThreads() {
  TonalithBuild threads tonalith_audio_tests tonalith_platform_tests tonalith_platform_openal_tests \
    tonalith_platform_openal_rest_tests
  ctest --preset threads
}

# TonalithFuzz PROGRAM: TONALITH_FUZZ_SECONDS (12) over its seeds, fuzz/<subject>_seeds; what it finds stays in
# build/fuzz. Its words come in one piece when it has ended.
TonalithFuzz() {
  local subject=${1##*/tonalith_} seeds=() log code=0
  subject=${subject%_fuzz}
  log=build/fuzz/$subject.log
  [[ ! -d fuzz/${subject}_seeds ]] || seeds=("fuzz/${subject}_seeds")
  mkdir -p -- "build/fuzz/found/$subject"
  "$1" -max_total_time="${TONALITH_FUZZ_SECONDS:-12}" -timeout=10 -rss_limit_mb=2048 -verbosity=0 \
    -print_final_stats=1 -artifact_prefix="build/fuzz/$subject-" "build/fuzz/found/$subject" "${seeds[@]}" \
    >"$log" 2>&1 || code=1
  printf '%s\n%s\n' "$subject" "$(<"$log")"
  return "$code"
}

# Each program under build/fuzz/fuzz, as many at a time as there are processors.
TonalithCheckFuzz() {
  local programs
  TonalithBuild fuzz fuzz/all
  programs=$(find build/fuzz/fuzz -maxdepth 1 -type f -executable -name 'tonalith_*_fuzz' | sort)
  [[ -n $programs ]] || {
    printf 'There is a folder fuzz/, but no target was built.\n' >&2
    return 1
  }
  export -f TonalithFuzz
  xargs -P "$(nproc)" -n 1 bash -c 'TonalithFuzz "$0"' <<<"$programs"
}

# The rooms without Qt build and pass their tests where Qt is not found.
TonalithCheckNoQt() {
  TonalithBuild no-qt
  ctest --preset no-qt
}

# A slice of ./test --torture, always the same.
TonalithCheckTorture() {
  tests/torture/run build/dev --actions 3000 --kills 50 --seeds 11 --seconds 400 --world short
}
