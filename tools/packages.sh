# shellcheck shell=bash disable=SC2034
# What the project is built from, all of it Debian 12 packages. Sourced by run, test and check.

build_packages="g++ cmake ninja-build ccache mold pkg-config qt6-base-dev libqt6svg6-dev libgl-dev libsqlite3-dev
 libicu-dev libexpected-dev libzint-dev libxlsxwriter-dev libzip-dev libcsv-dev qt6-qpa-plugins fonts-inter
 fonts-noto-core fonts-dejavu-core"
test_packages="libgtest-dev libgmock-dev poppler-utils xvfb openbox xdotool qt6-base-private-dev clang-format"
bench_packages="libbenchmark-dev"
check_packages="clang-format clang-tidy cppcheck shellcheck"

# install_missing <packages...>: installs those that are not there; says what to do when it may not.
install_missing() {
  local missing="" package
  for package in "$@"; do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing="$missing $package"
  done
  [ -z "$missing" ] && return 0
  echo "Installing:$missing"
  local as_root=""
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing and only root may install them: apt-get install$missing" >&2
      return 1
    fi
    as_root=sudo
  fi
  # shellcheck disable=SC2086
  $as_root apt-get update -qq &&
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}
