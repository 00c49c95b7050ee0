#!/usr/bin/env bash
# Times the whole phone-friendly site ("Webformaat=1": web-sized copies, double-density
# thumbnails, pages) against the same gallery without it (thumbnails and pages only) and
# against thumbsup making its own site from the same photos.
#
#   full_site.sh [CORPUS...]          default: bench/corpus bench/corpus300
#
# Per corpus and round, each tool gets a fresh folder of links to the photos and runs from
# scratch, interleaved: kiekbord, kiekbord-web, thumbsup, kiekbord, ... Kiekbord's runs are
# followed by a rerun with nothing changed. Every line gives the wall time, the processor
# time, the peak resident memory and the most open descriptors (measure_run.py). The table
# of a corpus holds the best (least) wall and processor time of RUNS rounds (default 3)
# and the largest peak memory seen; the ratios below it are those the targets are about.
#
# KIEKBORD_MAAK names the program (default build/release/bin/kiekbord-maak). THUMBSUP may
# name a thumbsup program already installed; otherwise thumbsup is installed from npm into
# bench/.cache/thumbsup on the first use. thumbsup needs exiftool and GraphicsMagick
# (Debian packages libimage-exiftool-perl and graphicsmagick, installed when run as root).
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/.." && pwd)
maak=${KIEKBORD_MAAK:-$root/build/release/bin/kiekbord-maak}
runs=${RUNS:-3}
thumbsup_dir=$here/.cache/thumbsup
thumbsup=${THUMBSUP:-$thumbsup_dir/node_modules/.bin/thumbsup}
thumbsup_version=2.18.0
tools=(kiekbord kiekbord-web thumbsup)
py=python3
[[ -x /usr/bin/python3 ]] && py=/usr/bin/python3

die() { echo "full_site: $*" >&2; exit 1; }
have() { command -v "$1" >/dev/null 2>&1; }

corpora=("$@")
((${#corpora[@]} > 0)) || corpora=("$here/corpus" "$here/corpus300")
[[ -x $maak ]] || die "$maak not found (cmake --preset release && cmake --build build/release)"
[[ $runs =~ ^[1-9][0-9]*$ ]] || die "RUNS must be a positive number"

install_thumbsup() {
    local missing=()
    have exiftool || missing+=(libimage-exiftool-perl)
    have gm || missing+=(graphicsmagick)
    if ((${#missing[@]} > 0)); then
        [[ $EUID -eq 0 ]] || die "missing: ${missing[*]} (apt-get install ${missing[*]})"
        DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
    fi
    [[ -x $thumbsup ]] && return
    have npm || die "npm not found (apt-get install npm)"
    mkdir -p "$thumbsup_dir"
    echo "installing thumbsup $thumbsup_version from npm into $thumbsup_dir"
    # Its database module builds native code at install time, which npm runs only for
    # packages allowed to.
    printf '{ "private": true, "allowScripts": { "better-sqlite3": true } }\n' > "$thumbsup_dir/package.json"
    (cd "$thumbsup_dir" && npm install --no-audit --no-fund "thumbsup@$thumbsup_version" >install.log 2>&1) \
        || die "npm install failed; see $thumbsup_dir/install.log"
    if [[ -z $(find "$thumbsup_dir/node_modules/better-sqlite3" -name '*.node' -print -quit) ]]; then
        (cd "$thumbsup_dir" && npm rebuild better-sqlite3 >>install.log 2>&1) \
            || die "building better-sqlite3 failed; see $thumbsup_dir/install.log"
    fi
    [[ -x $thumbsup ]] || die "thumbsup not installed; see $thumbsup_dir/install.log"
}

# The photos of folder $1, in name order.
photos() { (cd "$1" && ls -- *.jpg); }

# A gallery script for every photo of $1; $2 is "1" for Webformaat.
write_script() {
    local dir=$1 web=$2 i=0 name
    local -a names
    mapfile -t names < <(photos "$dir")
    {
        printf '%s\n' "[Kiekbord]" "Versie=4.1" "[Algemeen]" "InvoerDir=$dir/" "UitvoerDir=$dir/" \
            "Titel=Bank" "Thumbnails=1" "AantalFotos=${#names[@]}"
        for name in "${names[@]}"; do
            i=$((i + 1))
            printf '[Foto%03d]\nFoto=%s\nBijschrift=Foto %d\n' "$i" "$name" "$i"
        done
        printf '%s\n' "[Instellingen]" "Sjabloon=Klassiek" "AantalFotosPerPagina=4" "Presentatie=0"
        if [[ $web == 1 ]]; then echo "Webformaat=1"; fi
    } | sed 's/$/\r/' > "$dir/bank.kbs"
}

# A fresh folder $2 of links to the photos of corpus $1 (copies across file systems).
fresh_copy() {
    local corpus=$1 dir=$2 name
    rm -rf "$dir"
    mkdir -p "$dir"
    for name in "$corpus"/*.jpg; do
        ln "$name" "$dir/" 2>/dev/null || cp -p "$name" "$dir/"
    done
}

measure() { "$py" "$here/measure_run.py" --log "$1" -- "${@:2}"; }
field() { sed -n "s/.*\\b$1=\\([0-9.]*\\).*/\\1/p" <<<"$2"; }
# Keeps in best[$1] the smaller (or with "max" the larger) of it and $2.
keep() {
    local key=$1 value=$2 how=${3:-min}
    if [[ -z ${best[$key]:-} ]] || awk -v a="$value" -v b="${best[$key]}" -v h="$how" \
        'BEGIN { exit !((h == "max") ? a > b : a < b) }'; then
        best[$key]=$value
    fi
}
keep_all() {
    local key=$1 line=$2
    keep "$key-s" "$(field wall_s "$line")"
    keep "$key-cpu" "$(field cpu_s "$line")"
    keep "$key-mb" "$(field peak_rss_mb "$line")" max
}
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }

run_tool() {
    local tool=$1 dir=$2 count=$3 r=$4 result rerun
    fresh_copy "$corpus" "$dir/in"
    if [[ $tool == thumbsup ]]; then
        rm -rf "$dir/out"
        result=$(measure "$dir/log.txt" "$thumbsup" --input "$dir/in" --output "$dir/out" --log info)
    else
        write_script "$dir/in" "$([[ $tool == kiekbord-web ]] && echo 1 || echo 0)"
        result=$(measure "$dir/log.txt" "$maak" "$dir/in/bank.kbs")
    fi
    echo "$count photos, $tool run $r: $result"
    [[ $result == *" exit=0" ]] || die "$tool failed; see $dir/log.txt"
    keep_all "$tool" "$result"
    [[ $tool == thumbsup ]] && return
    rerun=$(measure "$dir/log2.txt" "$maak" "$dir/in/bank.kbs")
    echo "$count photos, $tool rerun $r: $rerun"
    [[ $rerun == *" exit=0" ]] || die "$tool rerun failed; see $dir/log2.txt"
    keep_all "$tool-rerun" "$rerun"
}

install_thumbsup
echo "$(date +%F), $(nproc) cores, load before: $(cut -d' ' -f1-3 /proc/loadavg)"
for corpus in "${corpora[@]}"; do
    [[ -d $corpus ]] || die "no corpus $corpus (make_corpus.sh)"
    corpus=$(cd "$corpus" && pwd)
    work=$here/.cache/full-site/$(basename "$corpus")
    count=$(photos "$corpus" | wc -l)
    declare -A best=()
    for ((r = 1; r <= runs; r++)); do
        for tool in "${tools[@]}"; do run_tool "$tool" "$work/$tool" "$count" "$r"; done
    done
    printf '\n%s photos (%s), best of %s, load after: %s\n' "$count" "$(basename "$corpus")" "$runs" \
        "$(cut -d' ' -f1-3 /proc/loadavg)"
    printf '| tool | first run s | cpu s | rerun s | rerun cpu s | peak MB |\n|---|---|---|---|---|---|\n'
    for tool in "${tools[@]}"; do
        printf '| %s | %s | %s | %s | %s | %s |\n' "$tool" "${best[$tool-s]}" "${best[$tool-cpu]}" \
            "${best[$tool-rerun-s]:--}" "${best[$tool-rerun-cpu]:--}" "${best[$tool-mb]}"
    done
    printf 'web / thumbnail-only: %sx (cpu %sx); thumbsup / web: %sx (cpu %sx)\n\n' \
        "$(ratio "${best[kiekbord-web-s]}" "${best[kiekbord-s]}")" \
        "$(ratio "${best[kiekbord-web-cpu]}" "${best[kiekbord-cpu]}")" \
        "$(ratio "${best[thumbsup-s]}" "${best[kiekbord-web-s]}")" \
        "$(ratio "${best[thumbsup-cpu]}" "${best[kiekbord-web-cpu]}")"
    unset best
done
