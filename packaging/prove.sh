#!/usr/bin/env bash
# Proves the package on a bare Debian 12, as root: packaging/prove.sh FILE.deb FOLDER
# The folder gets a Debian of the least packages, unless it holds one already; apt installs the package there
# with what it depends on; the demonstration is played, its PDFs included; and the window opens on its archives,
# on the display given or on one of Xvfb's own. A picture of it is left beside the folder.
set -euo pipefail
package=$(realpath "$1")
bare=$(realpath -m "$2")
. "$(dirname "$0")/../scripts/setup.sh"

tarvex_need debootstrap xvfb x11-utils x11-apps imagemagick
[ -x "$bare/usr/bin/dpkg" ] || debootstrap --variant=minbase bookworm "$bare" >"$bare.log"
cp "$package" "$bare/root/tarvex.deb"
chroot "$bare" apt-get update -qq
chroot "$bare" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
  /root/tarvex.deb >"$bare.apt.log" 2>&1

mountpoint -q "$bare/proc" || mount -t proc proc "$bare/proc"
trap 'kill ${window:-} ${xvfb:-} 2>/dev/null; sleep 1; umount "$bare/proc"' EXIT

rm -rf "$bare/root/prova"
chroot "$bare" tarvex-demo --folder /root/prova
if [ -z "${DISPLAY:-}" ]; then
  export DISPLAY=:97
  Xvfb $DISPLAY -screen 0 1366x768x24 >/dev/null 2>&1 &
  xvfb=$!
  sleep 1
fi
chroot "$bare" env HOME=/root tarvex --data /root/prova/archivi >"$bare.window.log" 2>&1 &
window=$!
for _ in $(seq 50); do
  sleep 0.2
  xwininfo -name "Scelte iniziali" >/dev/null 2>&1 && break
done
xwininfo -name "Scelte iniziali" | grep -q IsViewable
xwd -root -silent | convert xwd:- "$bare.png"
echo "The window stands; its picture is $bare.png"
