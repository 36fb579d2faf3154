#!/usr/bin/env bash
# Times the default job (largest tree, ten cross-validation folds, pruning,
# reports) on synthetic samples from bench/make_sample.py and prints a table
# of median wall time, user time and peak resident memory, with the ratio of
# each size's wall time to the size before it in the same series.
#
# usage: bench/run_suite.sh [-r REPEATS] [-q] [SET...]
#   -r REPEATS  runs per set, the median is shown (default 3)
#   -q          quick: only the 10k and 100k sets
#   SET         any of 10k 100k 1M 1M-missing 100k-2class (default: all)
# Samples are generated once into bench/data (git-ignored) and kept.
# Needs python3 and /usr/bin/time; builds a Release binary in build-bench.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
vardel="$root/build-bench/vardel"
data="$root/bench/data"
repeats=3
sets=()
while [ $# -gt 0 ]; do
  case "$1" in
    -r) repeats="$2"; shift 2 ;;
    -q) sets=(10k 100k); shift ;;
    *) sets+=("$1"); shift ;;
  esac
done
[ ${#sets[@]} -gt 0 ] || sets=(10k 100k 1M 1M-missing 100k-2class)

cmake -S "$root" -B "$root/build-bench" -DCMAKE_BUILD_TYPE=Release -DVARDEL_BUILD_TESTS=OFF >/dev/null
cmake --build "$root/build-bench" -j2 --target vardel >/dev/null

# Arguments of make_sample.py for each set, and the series it belongs to
# (ratios compare consecutive sizes of one series).
sample_args() {
  case "$1" in
    10k) echo "10000" ;;
    100k) echo "100000" ;;
    1M) echo "1000000" ;;
    1M-missing) echo "1000000 --missing 0.05" ;;
    100k-2class) echo "100000 --classes 2" ;;
    *) echo "unknown set $1" >&2; exit 2 ;;
  esac
}
series_of() {
  case "$1" in
    10k | 100k | 1M) echo size ;;
    *) echo "$1" ;;
  esac
}

median() { sort -g | awk '{v[NR] = $1} END {print v[int((NR + 1) / 2)]}'; }

printf '%-12s %9s %9s %9s %10s %8s\n' set cases wall_s user_s peak_MiB ratio
prev_series="" prev_wall=""
for set in "${sets[@]}"; do
  read -r -a args <<< "$(sample_args "$set")"
  dir="$data/$set"
  if [ ! -f "$dir/sample.dat" ]; then
    python3 "$root/bench/make_sample.py" "${args[0]}" "$dir" "${args[@]:1}"
  fi
  walls=() users=() peaks=()
  for ((r = 1; r <= repeats; r++)); do
    (cd "$dir" && rm -f sample.out && touch sample.out &&
      /usr/bin/time -f '%e %U %M' -o time.txt "$vardel" < sample.in > screen.txt)
    read -r wall user kib < "$dir/time.txt"
    walls+=("$wall") users+=("$user") peaks+=("$((kib / 1024))")
  done
  wall=$(printf '%s\n' "${walls[@]}" | median)
  user=$(printf '%s\n' "${users[@]}" | median)
  peak=$(printf '%s\n' "${peaks[@]}" | median)
  series=$(series_of "$set")
  ratio="-"
  if [ "$series" = "$prev_series" ] && [ -n "$prev_wall" ]; then
    ratio=$(awk -v a="$wall" -v b="$prev_wall" 'BEGIN {printf "%.1f", (b > 0 ? a / b : 0)}')
  fi
  printf '%-12s %9s %9s %9s %10s %8s\n' "$set" "${args[0]}" "$wall" "$user" "$peak" "$ratio"
  prev_series=$series prev_wall=$wall
done
