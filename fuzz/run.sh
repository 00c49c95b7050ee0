#!/usr/bin/env bash
# Builds the fuzz targets (preset fuzz) and runs each for SECONDS.
#
#   fuzz/run.sh SECONDS [target...]
#
# Without targets every target runs, one after the other. The corpus of a
# target grows in build/fuzz/corpus/<target>, seeded each time from the JPEG
# samples beside the repository (../shared/jpeg-samples), the test data and
# the program's templates, and the target's regression inputs in
# tests/data/fuzz/<target>. A finding (crash, leak, time-out or broken check)
# is kept in build/fuzz/findings/ and makes the script end non-zero; to keep
# it as a regression input, minimise it first:
#   build/fuzz/bin/fuzz_<target> -minimize_crash=1 -runs=100000 <finding>
set -euo pipefail

repo=$(cd "$(dirname "$0")/.." && pwd)
cd "$repo"

ALL_TARGETS=(keyed_text_file template_fields repeat_markers script_reader photo_size
             smooth_thumbnail pixel_buffer_thumbnail)

usage() {
  echo "Gebruik: $0 SECONDEN [doel...]" >&2
  echo "  doelen: ${ALL_TARGETS[*]}" >&2
  exit 2
}

[ $# -ge 1 ] && [[ $1 =~ ^[0-9]+$ ]] || usage
seconds=$1
shift
targets=("$@")
((${#targets[@]} > 0)) || targets=("${ALL_TARGETS[@]}")
for target in "${targets[@]}"; do
  [[ " ${ALL_TARGETS[*]} " == *" $target "* ]] || { echo "Onbekend doel: $target" >&2; usage; }
done

build_dir=build/fuzz
samples="$repo/../shared/jpeg-samples"

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

# A corpus file name for a seed: its path with "/" as "_".
seed_name() {
  local path=${1#"$repo/"}
  path=${path#../}
  echo "${path//\//_}"
}

# Copies the given files into a corpus folder; a file that is already there
# stays as it is.
seed() {
  local dir=$1 file
  shift
  for file in "$@"; do
    [ -f "$file" ] && cp -n "$file" "$dir/$(seed_name "$file")"
  done
  return 0
}

# Templates with a field name and a value after them (NUL-separated), so the
# filling starts from real fields.
seed_with_fields() {
  local dir=$1 file
  shift
  for file in "$@"; do
    { cat "$file"; printf '\0TITEL\0Zee & <strand> \\& "zon" [2026]'; } > "$dir/velden_$(seed_name "$file")"
  done
}

seed_corpus() {
  local target=$1 dir="$build_dir/corpus/$1"
  mkdir -p "$dir"
  local jpegs=() ini=() scripts=() templates=()
  if [ -d "$samples" ]; then
    mapfile -t jpegs < <(find "$samples" -type f \( -iname '*.jpg' -o -iname '*.jpeg' \) | sort)
  else
    echo "Geen voorbeeldfoto's in $samples: het corpus begint zonder." >&2
  fi
  mapfile -t -O "${#jpegs[@]}" jpegs < <(find tests/data -type f \( -iname '*.jpg' -o -iname '*.jpeg' \) | sort)
  mapfile -t ini < <(find tests/data data examples -type f \( -name '*.ini' -o -name '*.txt' \) | sort)
  mapfile -t scripts < <(find tests/data examples -type f -name '*.kbs' | sort)
  mapfile -t templates < <(find tests/data/blok_sjablonen data/Sjabloon -type f -name '*.html' | sort)
  case $target in
    keyed_text_file) seed "$dir" "${ini[@]}" "${scripts[@]}" ;;
    template_fields) seed "$dir" "${templates[@]}"; seed_with_fields "$dir" "${templates[@]}" ;;
    repeat_markers) seed "$dir" "${templates[@]}" ;;
    script_reader) seed "$dir" "${scripts[@]}" ;;
    photo_size | smooth_thumbnail | pixel_buffer_thumbnail) seed "$dir" "${jpegs[@]}" ;;
  esac
  if [ -d "tests/data/fuzz/$target" ]; then
    seed "$dir" tests/data/fuzz/"$target"/*
  fi
}

# The longest input: text targets reach the 32767-character text limit, the
# size scan its 256 KiB window; the decoding targets stay small and fast.
max_len() {
  case $1 in
    photo_size) echo 270000 ;;
    smooth_thumbnail | pixel_buffer_thumbnail) echo 65536 ;;
    *) echo 40000 ;;
  esac
}

export VIPS_CONCURRENCY=1
mkdir -p "$build_dir/findings" "$build_dir/logs"
found=0
summary=()
for target in "${targets[@]}"; do
  seed_corpus "$target"
  log="$build_dir/logs/$target.log"
  echo "== $target: $seconds s"
  status=0
  "$build_dir/bin/fuzz_$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=3072 \
    -max_len="$(max_len "$target")" -print_final_stats=1 \
    -artifact_prefix="$build_dir/findings/$target-" \
    "$build_dir/corpus/$target" >"$log" 2>&1 || status=$?
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  corpus=$(find "$build_dir/corpus/$target" -type f | wc -l)
  if [ "$status" -eq 0 ]; then
    line="$target: ${runs:-?} uitvoeringen in $seconds s, corpus $corpus bestanden, geen vondst"
  else
    found=1
    artifact=$(sed -n 's/.*Test unit written to \(.*\)$/\1/p' "$log" | tail -1)
    line="$target: VONDST na ${runs:-?} uitvoeringen (${artifact:-zie $log})"
    grep -m1 -E "ERROR: |SUMMARY: |$target: " "$log" | sed 's/^/    /' || true
  fi
  echo "$line"
  summary+=("$line")
done

echo
echo "Fuzzing, $seconds s per doel:"
printf '  %s\n' "${summary[@]}"
exit "$found"
