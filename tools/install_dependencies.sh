#!/usr/bin/env bash
# Installs the Debian packages that are missing: "run" for building and running, "test" (or nothing) for
# the tests too, "bench" for these and the peers that benchmarks compare with. Touches nothing when all are
# there, so that it works offline and without rights then.
set -euo pipefail

run_packages=(
  g++ cmake ninja-build git
  qt6-base-dev qt6-svg-dev libqt6svg6
  libboost-dev libsqlite3-dev libcli11-dev
  libgtest-dev libgmock-dev libbenchmark-dev python3 # the build files configure tests and benchmarks in every build
  fonts-liberation
)
test_packages=(
  poppler-utils python3-ezdxf librecad binutils locales xvfb xdotool
  clang clang-format clang-tidy libclang-rt-14-dev
)
bench_packages=(libgeos-dev libcgal-dev python3-shapely)

case "${1:-test}" in
  run) wanted=("${run_packages[@]}") ;;
  test) wanted=("${run_packages[@]}" "${test_packages[@]}") ;;
  bench) wanted=("${run_packages[@]}" "${test_packages[@]}" "${bench_packages[@]}") ;;
  *)
    echo "install_dependencies.sh: takes \"run\", \"test\" or \"bench\", got \"$1\"" >&2
    exit 2
    ;;
esac

installed() {
  [ "$(dpkg-query -W -f='${db:Status-Abbrev}' "$1" 2>/dev/null | cut -c1-2)" = "ii" ]
}

missing=()
for package in "${wanted[@]}"; do
  installed "$package" || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
  echo "dependencies: all ${#wanted[@]} packages are installed"
  exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "dependencies: missing ${missing[*]}; run this as root, or install sudo" >&2
    exit 1
  fi
  as_root=(sudo)
fi

apt() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300 "$@" </dev/null
}

echo "dependencies: installing ${missing[*]}"
apt update
apt install -y --no-install-recommends "${missing[@]}" >/dev/null

for package in "${missing[@]}"; do
  if ! installed "$package"; then
    echo "dependencies: $package is still missing after the installation" >&2
    exit 1
  fi
done
echo "dependencies: installed ${#missing[@]} packages"
