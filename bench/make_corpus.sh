#!/usr/bin/env bash
# Builds the thumbnail benchmark corpus: the real photographs (JPEG, at least 2 megapixels)
# of a few Debian wallpaper packages, copied under unique lower-case names "name.jpg".
#
#   make_corpus.sh [DIR] [--count N] [--baseline]
#
# DIR defaults to bench/corpus (bench/corpus-baseline with --baseline). With --count N the corpus is cycled to exactly N photos:
# the first pass keeps the plain names, later passes add "--2", "--3", ... to the name
# (a plain name never holds "--", so the copies cannot clash with it).
# With --baseline every photo is rewritten as a baseline JPEG, losslessly and with all its
# segments (jpegtran -copy all), as cameras write them: the same pixels without the
# progressive files.
# The packages are fetched with `apt-get download` into bench/.cache/debs and unpacked
# with `dpkg -x`; nothing is installed. A finished DIR holds a stamp file ".corpus" and is
# left alone when run again with the same count.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
packages=(plasma-workspace-wallpapers ukui-wallpapers mate-backgrounds
          lomiri-wallpapers-16.04 lomiri-wallpapers-20.04)
min_pixels=2000000
py=python3
[[ -x /usr/bin/python3 ]] && py=/usr/bin/python3

die() { echo "make_corpus: $*" >&2; exit 1; }

dir=""
count=""
baseline=""
while (($#)); do
    case $1 in
        --count) [[ ${2:-} =~ ^[1-9][0-9]*$ ]] || die "--count needs a positive number"
                 count=$2; shift 2 ;;
        --baseline) baseline=1; shift ;;
        -h|--help) sed -n '2,15p' "${BASH_SOURCE[0]}"; exit 0 ;;
        -*) die "unknown option $1" ;;
        *) dir=$1; shift ;;
    esac
done
dir=${dir:-$here/corpus${baseline:+-baseline}}
if [[ -n $baseline ]] && ! command -v jpegtran >/dev/null 2>&1; then
    die "--baseline needs jpegtran: apt-get install libjpeg-turbo-progs"
fi

summary() {
    "$py" "$here/thumbsize.py" --scan "$dir" | awk -F'\t' '
        { mp = $2 * $3 / 1e6; n++; prog += $6
          if (n == 1 || mp < lo) lo = mp
          if (n == 1 || mp > hi) hi = mp }
        END { printf "corpus: %d photos, %.1f to %.1f megapixels, %d progressive\n", n, lo, hi, prog }'
}

jpg_count() { find "$dir" -maxdepth 1 -type f -name '*.jpg' | wc -l; }

stamp="${baseline:+baseline }count=${count:-all}"
if [[ -f $dir/.corpus ]] && [[ $(<"$dir/.corpus") == "$stamp "* ]] \
   && [[ $(jpg_count) -eq $(sed -n 's/.* photos=//p' "$dir/.corpus") ]]; then
    echo "corpus: $dir is complete, nothing to do"
    summary
    exit 0
fi
if [[ -d $dir ]]; then
    if [[ -f $dir/.corpus ]]; then
        find "$dir" -maxdepth 1 -type f \( -name '*.jpg' -o -name .corpus \) -delete
    elif [[ -n $(ls -A "$dir") ]]; then
        die "$dir is not empty and holds no corpus; refusing to touch it"
    fi
fi
mkdir -p "$dir"

# Fetch the packages once; later builds unpack the cached files.
debs=$here/.cache/debs
mkdir -p "$debs"
for pkg in "${packages[@]}"; do
    if ! compgen -G "$debs/${pkg}_*.deb" >/dev/null; then
        echo "fetching $pkg"
        # apt drops to the _apt user for downloads; let it write here to avoid a warning.
        [[ $EUID -eq 0 ]] && id _apt >/dev/null 2>&1 && chown _apt "$debs"
        (cd "$debs" && apt-get download -q "$pkg") || die "apt-get download $pkg failed"
    fi
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for pkg in "${packages[@]}"; do
    deb=$(compgen -G "$debs/${pkg}_*.deb" | sort | tail -n 1)
    dpkg -x "$deb" "$work/$pkg"
done

# Name each photo after its path below the package's picture folder, e.g.
# usr/share/wallpapers/Flow/contents/images/5120x2880.jpg -> flow-5120x2880.jpg.
# Only letters, digits and "-" remain: no spaces, no dots and no "_tn" in a name.
mkdir "$work/base"
find "$work" -path "$work/base" -prune -o -type f -print0 | sort -z \
    | xargs -0 "$py" "$here/thumbsize.py" --scan > "$work/jpegs"
while IFS=$'\t' read -r path width height _; do
    ((width * height >= min_pixels)) || continue
    rel=${path#"$work"/*/usr/share/}
    rel=${rel#wallpapers/}
    rel=${rel#backgrounds/}
    name=$(printf '%s' "${rel%.*}" | tr '[:upper:]' '[:lower:]' \
           | sed -e 's#/contents/images/#/#; s#/contents/#/#' \
                 -e 's/[^a-z0-9]\{1,\}/-/g; s/^-//; s/-$//')
    unique=$name
    n=2
    while [[ -e $work/base/$unique.jpg ]]; do unique=$name-$((n++)); done
    cp "$path" "$work/base/$unique.jpg"
done < "$work/jpegs"

mapfile -t base < <(cd "$work/base" && ls)
((${#base[@]} > 0)) || die "no photos of at least $min_pixels pixels found"
total=${count:-${#base[@]}}
for ((i = 0; i < total; i++)); do
    src=${base[i % ${#base[@]}]}
    pass=$((i / ${#base[@]} + 1))
    if ((pass == 1)); then dst=$src; else dst=${src%.jpg}--$pass.jpg; fi
    if [[ -n $baseline ]]; then
        jpegtran -copy all -outfile "$dir/$dst" "$work/base/$src"
    else
        cp "$work/base/$src" "$dir/$dst"
    fi
done
echo "$stamp photos=$total" > "$dir/.corpus"
echo "corpus: built $dir from ${#base[@]} distinct photos"
summary
