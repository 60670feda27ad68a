# Debian packages that building and testing need; sourced by the scripts beside the README.
# shellcheck shell=bash disable=SC2034
BUILD_PACKAGES=(g++ cmake ninja-build pkg-config)
WINDOW_PACKAGES=(qt6-base-dev qt6-serialport-dev libhidapi-dev libgsf-1-dev libxcb1-dev libcups2-dev fonts-dejavu-core)
TEST_PACKAGES=(libgtest-dev strace)
CHECK_PACKAGES=(clang-14 clang-tidy-14 clang-format-14 libclang-rt-14-dev llvm-14 cppcheck git python3)
# The programs that workbooks are exchanged with; some 600 MB. Without them those tests are skipped.
INTEROP_PACKAGES=(python3 python3-xlrd python3-xlwt gnumeric libreoffice-calc-nogui)
BENCH_PACKAGES=(libbenchmark-dev libxcb-damage0-dev python3 xvfb openbox xdotool x11-utils)
# What the benchmarks compare with; without it the page says so.
RIVAL_PACKAGES=(pulseview python3-xlrd python3-xlwt)
USB_PACKAGES=(qemu-system-x86 busybox-static kmod cpio)
# Other programs of a desktop; the tests that want one are skipped where it is missing.
CAPTURE_PACKAGES=(xvfb openbox xdotool x11-utils imagemagick weston qt6-wayland cups cups-client cups-filters poppler-utils)
# dpkg-dev alone makes the package; the others look at it.
PACKAGING_PACKAGES=(dpkg-dev lintian appstream desktop-file-utils man-db mandoc librsvg2-bin debootstrap)

# package_flags VARIABLE: what Debian's own packages are built with; from the project's folder.
package_flags() {
  DEB_BUILD_MAINT_OPTIONS=hardening=+all dpkg-buildflags --get "$1"
}

# install_packages NAME...: installs those that are missing, as root or with sudo.
install_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ "${#missing[@]}" -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local root=()
  [ "$(id -u)" -eq 0 ] || root=(sudo)
  "${root[@]}" apt-get update -qq
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
    >/dev/null
}
