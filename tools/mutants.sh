#!/usr/bin/env bash
# A small mutation check: makes one-line changes to core rules, one at a time,
# in a scratch checkout of HEAD, and runs the test suite on each. Every mutant
# must make the suite fail ("gevangen"); one that passes ("ONTSNAPT") shows a
# rule without a guard. Slow (a build and a test run per mutant); not part of
# the test command.
#
# Usage: tools/mutants.sh [SCRATCH_DIR]   (default: a fresh temporary folder)
set -uo pipefail
cd "$(dirname "$0")/.."

# file | sed expression | what the change breaks
MUTANTS=(
  "base/text_helpers.cpp|s/return hex.substr(4, 2) + hex.substr(2, 2) + hex.substr(0, 2);/return hex;/|colour byte order"
  "base/text_helpers.cpp|s/\"\\&\", \"<\", \">\"/\"\\&\", \"<\", \"\\&\"/|HTML escaping of >"
  "generator/overview_page.cpp|s/return (nummer - 1) \\/ FotosPerPagina(g.fotos_per_pagina) + 1;/return nummer \\/ FotosPerPagina(g.fotos_per_pagina) + 1;/|overview page number"
  "images/thumbnails.cpp|s/LeesWaarde(lijst_, basis, \"datumtijd\", \"xx\") == tijd \\&\\&/true \\&\\&/|thumbnail staleness (time)"
  "base/keyed_text_file.cpp|s/} else if (Upper(std::string_view(line).substr(0, eq)) == wanted_key) {/} else if (std::string_view(line).substr(0, eq) == key) {/|key comparison without case"
  "base/file_system.cpp|s/Descriptor fd(::open(temporary.c_str(), O_WRONLY/Descriptor fd(::open(path.c_str(), O_WRONLY/|atomic page write"
  "images/worker_pool.h|s/return reserved_ == 0 || reserved_ + memory <= budget_;/return true;/|worker pool memory budget"
  "editor/wizard_rules.cpp|s/t.voltooien = stap == 3;/t.voltooien = stap >= 2;/|finish only on the last step"
  "images/thumbnail_work.cpp|s/while (breedte \\/ d > kThumbnailGrens || hoogte \\/ d > kThumbnailGrens) ++d;/while (breedte \\/ d > kThumbnailGrens) ++d;/|thumbnail size rule"
  "generator/template_engine.cpp|s/value = Vervang(value, \"\\&lt;br\\&gt;\", \"<br>\");/value = value;/|line breaks in the description"
  "gallery/gallery_script.cpp|s/std::snprintf(buffer, sizeof buffer, \"Foto%03lld\", nummer);/std::snprintf(buffer, sizeof buffer, \"Foto%lld\", nummer);/|photo section names"
  "base/status.cpp|s/case ENOSPC:/case ENOSPC + 1000:/|disk full error number"
  "editor/photo_list.cpp|s/k.omhoog = foto \\&\\& \\*foto > 0;/k.omhoog = foto.has_value();/|move up on the first photo"
  "base/text_helpers.cpp|s/case '\"': result += \"\\&quot;\"; break;/case '\"': result += c; break;/|double quote in an attribute"
  "generator/generation_run.cpp|s/if (!IsPlainName(naam)) {/if (false) {/|photo names that leave the output folder"
  "base/file_system.cpp|s/while (::flock(fd.get(), LOCK_EX | LOCK_NB) != 0) {/while (false) {/|one run per output folder"
)

scratch=${1:-$(mktemp -d)}
git worktree add --detach --force "$scratch" HEAD >/dev/null || exit 2
trap 'git worktree remove --force "$scratch" >/dev/null 2>&1' EXIT
build=$scratch/build/mutants
cmake -S "$scratch" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug >/dev/null || exit 2
cmake --build "$build" >/dev/null || { echo "De onveranderde code bouwt niet." >&2; exit 2; }

run_suite() { ctest --test-dir "$build" -j "$(nproc)" -E browser_check >"$build/ctest.log" 2>&1; }
if ! run_suite; then
  echo "De tests falen al zonder mutant:" >&2
  grep -A20 'tests FAILED' "$build/ctest.log" >&2
  exit 2
fi

escaped=0
for entry in "${MUTANTS[@]}"; do
  # The expression itself may hold "|": the file is the first field and the
  # description the last.
  file=${entry%%|*}
  rest=${entry#*|}
  what=${rest##*|}
  expression=${rest%|*}
  cp "$scratch/$file" "$scratch/$file.orig"
  sed -i "$expression" "$scratch/$file"
  if cmp -s "$scratch/$file" "$scratch/$file.orig"; then
    echo "NIET TOEGEPAST  $what ($file)"
    escaped=$((escaped + 1))
  elif ! cmake --build "$build" >/dev/null 2>&1; then
    echo "bouwt niet     $what ($file)"
  elif run_suite; then
    echo "ONTSNAPT       $what ($file)"
    escaped=$((escaped + 1))
  else
    echo "gevangen       $what ($file)"
  fi
  mv "$scratch/$file.orig" "$scratch/$file"
done
cmake --build "$build" >/dev/null 2>&1
echo "${#MUTANTS[@]} mutanten, $escaped ontsnapt of niet toegepast."
[ "$escaped" -eq 0 ]
