#!/usr/bin/env bash
# Times thumbnail tools side by side on the same photos and the same exact thumbnail sizes
# (thumbsize.py), quality 90, each run writing into a fresh folder:
#   vipsthumbnail, ImageMagick, GraphicsMagick   one process per photo, xargs -P cores;
#   libvips-in-process, pillow                   pool_thumbs.py, one worker per core, so
#                                                no program start per photo;
#   floor-djpeg-1/8                              djpeg -scale 1/8 | cjpeg per photo: the
#                                                least decoding any tool can get away with;
#   kiekbord                                     $KIEKBORD_BENCH, when it exists.
#
#   compare_thumbnailers.sh [CORPUS...]       (default: bench/corpus, see make_corpus.sh)
#
# Several corpora (say bench/corpus and its baseline copy bench/corpus-baseline) are
# compared one after the other, each with a table of its own.
#
# Environment: RUNS (default 3; the best wall-clock time of the runs counts),
# KIEKBORD_BENCH (an executable that runs Kiekbord's thumbnail run on the folder given as
# its argument and prints its own timing; it is run twice per round on a fresh copy of
# the corpus, the second time with nothing changed).
#
# Output: a table (tool, best seconds, ratio to the fastest exact-size tool, ratio to the
# floor, peak RSS of the largest process, photos per second, thumbnails missing or of the
# wrong size) and the same as a TSV block between "# BEGIN TSV" and "# END TSV".
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
if (($# > 1)); then
    for c in "$@"; do "${BASH_SOURCE[0]}" "$c"; done
    exit 0
fi
corpus=$(cd "${1:-$here/corpus}" 2>/dev/null && pwd) \
    || { echo "compare: no corpus folder ${1:-$here/corpus}; run make_corpus.sh first" >&2; exit 1; }
runs=${RUNS:-3}
cores=$(nproc)
py=python3
[[ -x /usr/bin/python3 ]] && py=/usr/bin/python3

die() { echo "compare: $*" >&2; exit 1; }
have() { command -v "$1" >/dev/null 2>&1; }

# ImageMagick: Debian's versioned name first, so a different "convert" earlier on PATH
# does not get picked.
find_im() {
    local c
    for c in convert-im6.q16 magick convert; do
        if have "$c" && "$c" -version 2>/dev/null | grep -q ImageMagick; then echo "$c"; return; fi
    done
}

# --- tools ----------------------------------------------------------------------------
missing=()
have vipsthumbnail || missing+=(libvips-tools)
"$py" -c 'import PIL' 2>/dev/null || missing+=(python3-pil)
[[ -n $(find_im) ]] || missing+=(imagemagick)
have gm || missing+=(graphicsmagick)
have djpeg && have cjpeg || missing+=(libjpeg-turbo-progs)
[[ -x /usr/bin/time ]] || missing+=(time)
if ((${#missing[@]})); then
    [[ $EUID -eq 0 ]] || die "missing tools; run: sudo apt-get install -y ${missing[*]}"
    echo "installing: ${missing[*]}"
    DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}" >/dev/null
fi
im=$(find_im)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
jobs=$work/jobs
"$py" "$here/thumbsize.py" --scan "$corpus" > "$jobs"
photos=$(wc -l < "$jobs")
((photos > 0)) || die "no JPEG photos in $corpus; run make_corpus.sh first"

# Expected thumbnail name and size per photo, for the check after every run.
while IFS=$'\t' read -r path _ _ tw th _; do
    name=${path##*/}
    printf '%s\t%s\t%s\n' "${name//.jpg/_tn.jpg}" "$tw" "$th"
done < "$jobs" > "$work/expected"

# Reads every photo once so that all tools start with the same warm page cache.
cut -f1 "$jobs" | tr '\n' '\0' | xargs -0 cat > /dev/null

# --- one batch per tool ---------------------------------------------------------------
# prepare TOOL OUT writes the tool's NUL-separated arguments to $work/args and sets
# nargs to the number of arguments per photo.
prepare() {
    local tool=$1 out=$2 path tw th name thumb a
    while IFS=$'\t' read -r path _ _ tw th _; do
        name=${path##*/}
        thumb=$out/${name//.jpg/_tn.jpg}
        case $tool in
            vips)  a=(--no-rotate --size "${tw}x${th}!" -o "${thumb}[Q=90,strip]" "$path") ;;
            im)    a=(-define "jpeg:size=$((2 * tw))x$((2 * th))" "$path"
                      -thumbnail "${tw}x${th}!" -quality 90 "$thumb") ;;
            gm)    a=(convert -size "$((2 * tw))x$((2 * th))" "$path"
                      -thumbnail "${tw}x${th}!" -quality 90 "$thumb") ;;
            *)     a=("$path" "$thumb") ;;
        esac
        printf '%s\0' "${a[@]}"
    done < "$jobs" > "$work/args"
    nargs=${#a[@]}
}

declare -A best cpu rss bad failed

# timed NAME DIR COMMAND... runs the command once under /usr/bin/time and keeps the best
# wall-clock seconds, the least CPU seconds and the highest peak RSS (of the largest single
# process) of NAME's runs; DIR is checked for the thumbnails, "-" skips the check.
timed() {
    local name=$1 dir=$2 start secs kb user sys wrong=0
    shift 2
    start=$EPOCHREALTIME
    if ! /usr/bin/time -f '%M %U %S' -o "$work/rss" "$@" > "$work/log" 2>&1; then
        echo "warning: $name failed:" >&2
        tail -n 5 "$work/log" >&2
        failed[$name]=1
        return 0
    fi
    secs=$(awk -v a="$start" -v b="$EPOCHREALTIME" 'BEGIN { printf "%.3f", b - a }')
    read -r kb user sys < <(tail -n 1 "$work/rss")
    [[ $dir == - ]] || wrong=$(check "$dir")
    best[$name]=$(awk -v a="$secs" -v b="${best[$name]:-}" 'BEGIN { print (b == "" || a < b) ? a : b }')
    cpu[$name]=$(awk -v a="$user" -v s="$sys" -v b="${cpu[$name]:-}" \
                 'BEGIN { c = a + s; print (b == "" || c < b) ? c : b }')
    ((kb > ${rss[$name]:-0})) && rss[$name]=$kb
    bad[$name]=$((${bad[$name]:-0} + wrong))
}

# check DIR prints the number of expected thumbnails missing from DIR or of another size.
check() {
    "$py" "$here/thumbsize.py" --scan "$1" \
        | awk -F'\t' 'NR == FNR { want[$1] = $2 "x" $3; n++; next }
                      { f = $1; sub(".*/", "", f); if (want[f] == $2 "x" $3) ok++ }
                      END { print n - ok }' "$work/expected" -
}

# batch TOOL OUT makes and times all thumbnails. Each process is kept to one thread, so
# the parallelism is the same for every tool: one process per core.
# shellcheck disable=SC2016  # the floor's $1 and $2 belong to its inner shell
batch() {
    local tool=$1 out=$2
    local x=(xargs -0 -n "$nargs" -P "$cores")
    case $tool in
        vips)    VIPS_CONCURRENCY=1 timed vipsthumbnail "$out" "${x[@]}" vipsthumbnail ;;
        libvips) timed libvips-in-process "$out" "$py" "$here/pool_thumbs.py" libvips \
                     "$jobs" "$out" "$cores" ;;
        pillow)  timed pillow "$out" "$py" "$here/pool_thumbs.py" pillow "$jobs" "$out" "$cores" ;;
        im)      MAGICK_THREAD_LIMIT=1 OMP_NUM_THREADS=1 timed imagemagick "$out" "${x[@]}" "$im" ;;
        gm)      OMP_NUM_THREADS=1 timed graphicsmagick "$out" "${x[@]}" gm ;;
        # 1/8 scale, no exact size: its output is not checked.
        floor)   timed floor-djpeg-1/8 - "${x[@]}" \
                     sh -c 'djpeg -scale 1/8 "$1" | cjpeg -quality 90 > "$2"' sh ;;
    esac < "$work/args"
}

names=(vipsthumbnail libvips-in-process pillow imagemagick graphicsmagick floor-djpeg-1/8)
kiekbord=${KIEKBORD_BENCH:-}
[[ -n $kiekbord && -x $kiekbord ]] || kiekbord=""

load_start=$(cut -d' ' -f1 /proc/loadavg)
echo "corpus: $corpus, $photos photos; $cores cores; best of $runs runs; load $load_start"
if awk -v l="$load_start" -v c="$cores" 'BEGIN { exit !(l >= c / 2) }'; then
    echo "warning: the machine is busy (load $load_start on $cores cores): wall-clock" \
         "figures will be high and uneven; cpu_s is steadier" >&2
fi
for ((round = 1; round <= runs; round++)); do
    for tool in vips libvips pillow im gm floor; do
        out=$(mktemp -d "$work/out.XXXX")
        prepare "$tool" "$out"
        batch "$tool" "$out"
        rm -rf "$out"
    done
    if [[ -n $kiekbord ]]; then
        folder=$work/kiekbord
        rm -rf "$folder" && mkdir "$folder"
        cp -l "$corpus"/*.jpg "$folder"/ 2>/dev/null || cp -p "$corpus"/*.jpg "$folder"/
        timed kiekbord-first-run "$folder" "$kiekbord" "$folder"
        sed "s/^/  kiekbord (first run, round $round): /" "$work/log"
        timed kiekbord-second-run - "$kiekbord" "$folder"
        sed "s/^/  kiekbord (second run, round $round): /" "$work/log"
    fi
done
if [[ -n $kiekbord ]]; then
    names+=(kiekbord-first-run kiekbord-second-run)
else
    echo "kiekbord: niet gebouwd, overgeslagen"
fi

# --- report ---------------------------------------------------------------------------
for n in "${names[@]}"; do
    if [[ -z ${best[$n]:-} ]]; then echo "warning: no successful run of $n" >&2; continue; fi
    wrong=${bad[$n]:-0}
    [[ -z ${failed[$n]:-} ]] || wrong="$wrong, some runs failed"
    printf '%s\t%s\t%s\t%s\t%s\n' "$n" "${best[$n]}" "${cpu[$n]}" "${rss[$n]}" "$wrong"
done > "$work/results"

pil=$("$py" -c 'import PIL; print(PIL.__version__)')
versions="vips $(vips --version | sed 's/^vips-//'); pillow $pil;"
versions+=" imagemagick $("$im" -version | sed -n '1s/^Version: ImageMagick \([^ ]*\).*/\1/p');"
versions+=" graphicsmagick $(gm -version | sed -n '1s/^GraphicsMagick \([^ ]*\).*/\1/p');"
versions+=" libjpeg-turbo $(cjpeg -version 2>&1 | sed -n 's/.*version \([^ ]*\).*/\1/p')"
cpu_model=$(sed -n 's/^model name[[:space:]]*: //p' /proc/cpuinfo | head -n 1)
load_end=$(cut -d' ' -f1 /proc/loadavg)

# The fastest tool is the fastest one that makes exact-size thumbnails: not the floor
# (1/8 scale, no resize) and not Kiekbord's second run (nothing to decode).
awk -F'\t' -v photos="$photos" -v date="$(date +'%Y-%m-%d %H:%M %Z')" -v cores="$cores" \
    -v runs="$runs" -v cpu_model="$cpu_model" -v versions="$versions" \
    -v load="$load_start to $load_end" '
    { name[NR] = $1; secs[NR] = $2; cpu[NR] = $3; kb[NR] = $4; wrong[NR] = $5
      if ($1 == "pillow") { pil_secs = $2; pil_cpu = $3 }
      if ($1 == "kiekbord-first-run") { kb_secs = $2; kb_cpu = $3 }
      if ($1 == "floor-djpeg-1/8") floor = $2
      else if ($1 != "kiekbord-second-run" && (fast == "" || $2 < fast)) fast = $2 }
    function rows(head, fmt,    i) {
        printf head, "tool", "seconds", "x_fastest", "x_floor", "cpu_s", "rss_mb",
               "photos_per_s", "wrong_size"
        for (i = 1; i <= NR; i++)
            printf fmt, name[i], secs[i], fast ? secs[i] / fast : 0,
                   floor ? secs[i] / floor : 0, cpu[i], kb[i] / 1024, photos / secs[i], wrong[i]
    }
    END {
        print ""
        rows("%-20s %8s %9s %7s %7s %7s %12s  %s\n",
             "%-20s %8.3f %9.2f %7.2f %7.2f %7.1f %12.1f  %s\n")
        printf "\n# BEGIN TSV\n# date=%s cores=%d cpu=%s load=%s photos=%d runs=%d\n# %s\n",
               date, cores, cpu_model, load, photos, runs, versions
        rows("%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\n", "%s\t%.3f\t%.2f\t%.2f\t%.2f\t%.1f\t%.1f\t%s\n")
        print "# END TSV"
        if (pil_secs > 0 && pil_cpu > 0 && kb_secs != "")
            printf "kiekbord first run / pillow: %.2f (seconds), %.2f (cpu_s)\n", kb_secs / pil_secs, kb_cpu / pil_cpu
    }' "$work/results"
