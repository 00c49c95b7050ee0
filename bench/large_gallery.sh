#!/usr/bin/env bash
# Runs the whole headless generation (kiekbord-maak) on galleries of 24-megapixel photos and
# reports, per gallery size, the wall time, the peak resident memory and the largest number
# of open file descriptors seen during the run.
#
#   large_gallery.sh [--corpus-only | --strace] [COUNT...]        default: 30 300
#
# The photos are the real photographs of bench/corpus (built with make_corpus.sh when
# missing), each enlarged and cropped to 6000 x 4000 with libvips, quality 90, every third
# one progressive, cycled to the largest COUNT and kept in bench/corpus24mp (run again, it
# reuses them). Each COUNT gets a fresh folder bench/corpus24mp/run-COUNT holding links to
# its first COUNT photos and a gallery script for them (Klassiek, one photo per page), so
# every run makes all thumbnails and pages from scratch. The generation's output goes to
# run-COUNT/kiekbord-maak.txt. --corpus-only builds the photos and stops. --strace adds a
# second run of each gallery from scratch under strace, which counts every descriptor made
# and closed, the short-lived ones the sampling may miss included.
#
# KIEKBORD_MAAK names the program (default build/release/bin/kiekbord-maak: build it with
#   cmake --preset release
#   cmake --build --preset release --target kiekbord-maak kiekbord_data).
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/.." && pwd)
maak=${KIEKBORD_MAAK:-$root/build/release/bin/kiekbord-maak}
source_dir=$here/corpus
big=$here/corpus24mp
width=6000
height=4000
py=python3
[[ -x /usr/bin/python3 ]] && py=/usr/bin/python3

die() { echo "large_gallery: $*" >&2; exit 1; }

corpus_only=0
traced=0
case ${1:-} in
    --corpus-only) corpus_only=1; shift ;;
    --strace) traced=1; shift
              command -v strace >/dev/null || die "strace not found (Debian package strace)" ;;
esac
counts=("$@")
((${#counts[@]} > 0)) || counts=(30 300)
largest=0
for n in "${counts[@]}"; do
    [[ $n =~ ^[1-9][0-9]*$ ]] || die "COUNT must be a positive number, not '$n'"
    ((n <= 333)) || die "a gallery with thumbnails holds at most 333 photos"
    ((n > largest)) && largest=$n
done
((corpus_only)) || [[ -x $maak ]] || die "$maak not found (see the build commands at the top of this script)"
command -v vips >/dev/null || die "vips not found (Debian package libvips-tools)"

# One enlarged photo: $1 source, $2 target, $3 1 for progressive.
enlarge() {
    local options="Q=90"
    [[ $3 == 1 ]] && options+=",interlace"
    vips thumbnail "$1" "$2.part.jpg[$options]" "$width" --height "$height" --crop centre --size both
    mv "$2.part.jpg" "$2"
}
export -f enlarge
# Unknown EXIF units in some of the source photos are not worth a warning per photo.
export width height VIPS_WARNING=0

build_corpus() {
    local stamp="${width}x$height photos=$largest"
    if [[ -f $big/.corpus && $(<"$big/.corpus") == "$stamp" ]]; then
        echo "corpus24mp: $largest photos present"
        return
    fi
    [[ -f $source_dir/.corpus ]] || "$here/make_corpus.sh" "$source_dir"
    mkdir -p "$big"
    find "$big" -maxdepth 1 -type f \( -name '*.jpg' -o -name .corpus \) -delete
    local base=() i
    mapfile -t base < <(cd "$source_dir" && ls -- *.jpg)
    ((${#base[@]} > 0)) || die "no photos in $source_dir"
    echo "corpus24mp: enlarging ${#base[@]} photos to $width x $height"
    for i in "${!base[@]}"; do
        printf '%s\0%s\0%s\0' "$source_dir/${base[i]}" "$big/${base[i]}" $((i % 3 == 0 ? 1 : 0))
    done | xargs -0 -n 3 -P "$(nproc)" bash -c 'enlarge "$@"' _
    # Later passes are copies named "name--2.jpg", "name--3.jpg", ... as make_corpus.sh does.
    for ((i = ${#base[@]}; i < largest; i++)); do
        local src=${base[i % ${#base[@]}]}
        cp "$big/$src" "$big/${src%.jpg}--$((i / ${#base[@]} + 1)).jpg"
    done
    # A corpus smaller than the originals keeps only the first photos.
    for ((i = largest; i < ${#base[@]}; i++)); do rm -f "$big/${base[i]}"; done
    echo "$stamp" > "$big/.corpus"
}

# The corpus's photos in the order they were made: the originals, then each pass.
photo_names() {
    (cd "$big" && ls -- *.jpg) | awk -F'--' '{ pass = NF > 1 ? $2 + 0 : 1; print pass "\t" $0 }' \
        | sort -s -t$'\t' -k1,1n | cut -f2 | head -n "$1"
}

write_script() {
    local dir=$1 n=$2 i=0 name
    {
        printf '%s\n' "[Kiekbord]" "Versie=4.1" "[Algemeen]" "InvoerDir=$dir/" "UitvoerDir=$dir/" \
            "Titel=24 megapixel" "Thumbnails=1" "AantalFotos=$n"
        while IFS= read -r name; do
            i=$((i + 1))
            printf '[Foto%03d]\nFoto=%s\nBijschrift=Foto %d\n' "$i" "$name" "$i"
        done < <(photo_names "$n")
        printf '%s\n' "[Instellingen]" "Sjabloon=Klassiek" "AantalFotosPerPagina=1" "Presentatie=0"
    } | sed 's/$/\r/' > "$dir/gallery.kbs"
}

build_corpus
"$py" "$here/thumbsize.py" --scan "$big" | awk -F'\t' '
    { n++; prog += $6 }
    END { printf "corpus24mp: %d photos, %d progressive\n", n, prog }'
((corpus_only)) && exit 0
echo "$(date +%F), $(nproc) cores, load before: $(cut -d' ' -f1-3 /proc/loadavg)"
for n in "${counts[@]}"; do
    run=$big/run-$n
    rm -rf "$run"
    mkdir "$run"
    while IFS= read -r name; do
        ln "$big/$name" "$run/$name" 2>/dev/null || cp -p "$big/$name" "$run/$name"
    done < <(photo_names "$n")
    write_script "$run" "$n"
    megabytes=$(du -smL "$run" | cut -f1)
    result=$("$py" "$here/measure_run.py" --log "$run/kiekbord-maak.txt" -- "$maak" "$run/gallery.kbs")
    echo "$n photos ($megabytes MB): $result, load after: $(cut -d' ' -f1-3 /proc/loadavg)"
    [[ $result == *" exit=0" ]] || die "the generation of $n photos failed; see $run/kiekbord-maak.txt"
    if ((traced)); then
        rm -f "$run"/*_tn.jpg "$run/kb_tn.txt"
        echo "$n photos under strace: $("$py" "$here/measure_run.py" --strace --log "$run/kiekbord-maak.txt" \
            -- "$maak" "$run/gallery.kbs")"
    fi
done
