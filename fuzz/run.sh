#!/usr/bin/env bash
# Builds the fuzz targets (preset fuzz) and runs each for SECONDS.
#
#   fuzz/run.sh SECONDS [target...]
#
# Without targets every target runs, one after the other. The corpus of a
# target grows in build/fuzz/corpus/<target>, seeded each time from the JPEG
# samples beside the repository (../shared/jpeg-samples), the test data, the
# program's templates and the target's regression inputs in
# tests/data/fuzz/<target>. A finding is kept in build/fuzz/findings/ and
# makes the script end non-zero; minimise it before keeping it:
#   build/fuzz/bin/fuzz_<target> -minimize_crash=1 -runs=100000 <finding>
set -euo pipefail
repo=$(cd "$(dirname "$0")/.." && pwd)
cd "$repo"
ALL_TARGETS=" keyed_text_file template_fields repeat_markers script_reader photo_size smooth_thumbnail pixel_buffer_thumbnail "
[[ ${1:-} =~ ^[0-9]+$ ]] || { echo "Gebruik: $0 SECONDEN [doel...]; doelen:$ALL_TARGETS" >&2; exit 2; }
seconds=$1
shift
targets=("${@:-$ALL_TARGETS}")
for target in ${targets[*]}; do
  [[ $ALL_TARGETS == *" $target "* ]] || { echo "Onbekend doel: $target" >&2; exit 2; }
done
build_dir=build/fuzz
samples=../shared/jpeg-samples
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

# Seeds for a target: files found by `find` under the given folders.
seeds() {
  case $1 in
    keyed_text_file) find tests/data data examples -type f \( -name '*.ini' -o -name '*.txt' -o -name '*.kbs' \) ;;
    template_fields | repeat_markers) find tests/data/blok_sjablonen data/Sjabloon -type f -name '*.html' ;;
    script_reader) find tests/data examples -type f -name '*.kbs' ;;
    *) find tests/data $([ -d "$samples" ] && echo "$samples") -type f \( -iname '*.jpg' -o -iname '*.jpeg' \) ;;
  esac
  find "tests/data/fuzz/$1" -type f
}

export VIPS_CONCURRENCY=1
mkdir -p "$build_dir/findings"
found=0
for target in ${targets[*]}; do
  corpus="$build_dir/corpus/$target"
  mkdir -p "$corpus"
  seeds "$target" | while read -r file; do cp -n "$file" "$corpus/${file//\//_}"; done
  log="$build_dir/$target.log"
  echo "== $target: $seconds s"
  # The longest input: text targets pass the 32767-character text limit, the
  # size scan its 256 KiB window; the decoding targets stay small and fast.
  max_len=40000
  [ "$target" = photo_size ] && max_len=270000
  [[ $target == *thumbnail ]] && max_len=65536
  status=0
  "$build_dir/bin/fuzz_$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=3072 \
    -max_len="$max_len" -print_final_stats=1 -artifact_prefix="$build_dir/findings/$target-" \
    "$corpus" >"$log" 2>&1 || status=$?
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  echo "$target: ${runs:-?} uitvoeringen in $seconds s, corpus $(find "$corpus" -type f | wc -l) bestanden, status $status"
  [ "$status" -eq 0 ] || { found=1; grep -m1 -E "ERROR: |SUMMARY: |$target: " "$log" | sed 's/^/    /' || true; }
done
exit "$found"
