# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
# shellcheck shell=bash
#
# Installs missing packages of tools/packages.tsv. Sourced by run, test and .ci/run, which set `root`. If nothing is
# missing, it only reads one table and queries dpkg once.

# TonalithPackages GROUP...: the entries of these groups, one per line; a bar separates alternatives.
TonalithPackages() {
  local group package rest wanted=" $* "
  while IFS=$'\t' read -r group package rest; do
    [[ $group == '#'* || -z $package || $wanted != *" $group "* ]] || printf '%s\n' "$package"
  done <"$root/tools/packages.tsv" | sort -u
}

# TonalithMissingPackages ENTRY...: the entries without an installed alternative.
TonalithMissingPackages() {
  local entry name state alternatives installed=' '
  while read -r name state; do
    [[ $state == installed ]] && installed+="$name "
  done < <(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "${@//|*/}" "${@//*|/}" 2>/dev/null || true)
  for entry in "$@"; do
    IFS='|' read -ra alternatives <<<"$entry"
    for name in "${alternatives[@]}"; do
      [[ $installed == *" $name "* ]] && continue 2
    done
    printf '%s\n' "$entry"
  done
}

# TonalithKnownName ENTRY: the first alternative that this release offers, or the first one.
TonalithKnownName() {
  local name alternatives
  IFS='|' read -ra alternatives <<<"$1"
  for name in "${alternatives[@]}"; do
    if [[ -n $(apt-cache policy "$name" 2>/dev/null | sed -n '/Candidate: [^(]/p') ]]; then
      printf '%s\n' "$name"
      return
    fi
  done
  printf '%s\n' "${alternatives[0]}"
}

# TonalithRequire GROUP...: installs the missing packages of these groups; exits with a message if that fails. With
# TONALITH_SKIP_PACKAGES=1 it does nothing.
TonalithRequire() {
  [[ ${TONALITH_SKIP_PACKAGES:-} != 1 ]] || return 0
  local entries missing names=() asRoot=() entry log
  mapfile -t entries < <(TonalithPackages "$@")
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    printf 'Tonalith needs what Debian calls: %s\n' "${entries[*]}" >&2
    printf 'Install these with the package manager of this system, then run again with TONALITH_SKIP_PACKAGES=1.\n' >&2
    exit 1
  fi
  mapfile -t missing < <(TonalithMissingPackages "${entries[@]}")
  [[ ${#missing[@]} -gt 0 ]] || return 0
  if [[ $(id -u) -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
      printf 'These packages are missing, and there is no sudo to install them with: %s\n' "${missing[*]}" >&2
      exit 1
    fi
    asRoot=(sudo)
  fi
  log=$(mktemp)
  printf 'Installing: %s\n' "${missing[*]}"
  "${asRoot[@]}" apt-get -q -o DPkg::Lock::Timeout=300 update >"$log" 2>&1 </dev/null || true
  for entry in "${missing[@]}"; do
    names+=("$(TonalithKnownName "$entry")")
  done
  if ! TonalithInstall "$log" "${names[@]}"; then
    printf 'Once more, after a short rest.\n'
    # The package server may be busy.
    sleep 5
    "${asRoot[@]}" apt-get -q -o DPkg::Lock::Timeout=300 update >>"$log" 2>&1 </dev/null || true
    if ! TonalithInstall "$log" "${names[@]}"; then
      cat -- "$log" >&2
      printf 'These packages could not be installed: %s\n' "${names[*]}" >&2
      exit 1
    fi
  fi
  rm -f -- "$log"
}

TonalithInstall() {
  local log=$1
  shift
  "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 \
    install --no-install-recommends "$@" >>"$log" 2>&1 </dev/null
}
