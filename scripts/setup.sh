# Installs through apt what the build needs and the machine lacks. Sourced by ./test, ./run and ./bench.

tarvex_need() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Missing packages: ${missing[*]}; install them as root." >&2; return 1; }
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

tarvex_need_build() {
  tarvex_need g++ cmake ninja-build ccache pkg-config ca-certificates \
    libsqlite3-dev libsodium-dev nlohmann-json3-dev
}

# The window: what it is built from, its fonts, and the reader by which the tests check PDFs.
tarvex_need_desktop() {
  tarvex_need qt6-base-dev qt6-svg-dev libgl-dev libxlsxwriter-dev fonts-liberation2 fonts-open-sans poppler-utils
}
