# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
# shellcheck shell=bash
#
# The stricter checks, one function each. Sourced by .ci/run after tools/build.sh, with `root` set and as current
# folder.

# TonalithSources: the C++ files of the project, one per line.
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

# The benchmarks build and run. They are built in the folder of the dev preset, which has their libraries, so clang-tidy
# checks them too.
TonalithCheckBench() {
  cmake --preset dev -DTONALITH_BENCH=ON >build/dev/configure.log
  TonalithBuild dev
  TONALITH_BENCH_BUILD=$root/build/dev bench/run --quick
}

# Uses the compile commands of the dev preset, whose build has generated the moc files, so no third build is needed.
# Headers are checked through the sources that include them. Tests are left to the tidy preset: parsing GoogleTest and
# Qt for each of them takes longer than all other sources.
TonalithCheckTidy() {
  local sources commands=build/ci/commands
  mkdir -p -- "$commands"
  # Removes options that clang does not know, and the precompiled headers, because each source must include what it
  # uses.
  sed -e 's| -Winvalid-pch -include [^ ]*||' -e 's| --param [^ ]*||' build/dev/compile_commands.json \
    >"$commands/compile_commands.json"
  sources=$(sed -n "s|^ *\"file\": \"$root/\(.*\)\",\{0,1\}$|\1|p" "$commands/compile_commands.json" |
    grep -v -e '^build/' -e '^tests/' | sort -u)
  printf '%d files\n' "$(wc -l <<<"$sources")"
  # The commands are for gcc; clang does not know all of its warnings.
  xargs -P "$(nproc)" -n 1 clang-tidy -p "$commands" --quiet --extra-arg=-Wno-unknown-warning-option <<<"$sources" \
    2> >(grep -v 'generated\.$' >&2)
}

TonalithCheckSanitizers() {
  TonalithBuild sanitize
  ctest --preset sanitize
}

# Only sound output has its own threads.
TonalithCheckThreads() {
  TonalithBuild threads tonalith_audio_tests tonalith_platform_tests tonalith_platform_openal_tests \
    tonalith_platform_openal_pause_tests
  ctest --preset threads
}

# TonalithFuzz PROGRAM: runs it for TONALITH_FUZZ_SECONDS (12) with its seeds, fuzz/<subject>_seeds; findings are
# written to build/fuzz. Prints its output in one piece at the end.
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

# Runs each program in build/fuzz/fuzz, as many in parallel as there are processors.
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

# A short, fixed part of ./test --stress.
TonalithCheckStress() {
  tests/stress/run build/dev --actions 3000 --kills 50 --seeds 11 --seconds 400 --world short
}
