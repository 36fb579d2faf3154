#!/usr/bin/env bash
# The default job (largest tree, 10 cross-validation folds, pruning, reports)
# on synthetic samples of growing size: wall and user seconds and peak
# resident memory of each run. Usage: bench/run_default.sh [CASES...]
# (default 10000 100000 1000000). Needs a Release build in build-bench.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
vardel="$root/build-bench/vardel"
cmake -S "$root" -B "$root/build-bench" -DCMAKE_BUILD_TYPE=Release -DVARDEL_BUILD_TESTS=OFF >/dev/null
cmake --build "$root/build-bench" -j2 --target vardel >/dev/null
sizes=("$@")
[ ${#sizes[@]} -gt 0 ] || sizes=(10000 100000 1000000)
printf '%10s %10s %10s %12s\n' cases wall_s user_s peak_MiB
for n in "${sizes[@]}"; do
  dir=$(mktemp -d)
  python3 "$root/bench/make_sample.py" "$n" "$dir"
  (cd "$dir" && touch sample.out && /usr/bin/time -f '%e %U %M' -o time.txt "$vardel" < sample.in > screen.txt)
  read -r wall user kib < "$dir/time.txt"
  printf '%10s %10s %10s %12s\n' "$n" "$wall" "$user" "$((kib / 1024))"
  rm -rf "$dir"
done
