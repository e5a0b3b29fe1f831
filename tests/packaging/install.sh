#!/usr/bin/env bash
# Installs the package into a fresh Debian and runs the programs there. Argument: the package.
set -euo pipefail
package=$(realpath "$1")
if [ "$(id -u)" -ne 0 ]; then
    echo "Left out, since it needs root: installing the package into a fresh Debian"
    exit 0
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# The fresh system may unpack as another user.
chmod 755 "$work"

# From where this machine takes Debian, and how.
apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Created-By: Packages' 'Origin: Debian' | sort -u >"$work/debian.list"
apt-config dump Acquire >"$work/apt.conf"

cp "$package" "$work/orvik.deb"
cat >"$work/try" <<'TRY'
set -eux
apt-get install --yes --quiet --quiet --no-install-recommends /root/orvik.deb
cd /root
orvik --version
# It runs until it is ended, so its libraries and plug-ins are there.
QT_QPA_PLATFORM=offscreen timeout 3 orvik /usr/share/doc/orvik/examples/juno.nv || [ $? = 124 ]
orvik-batch --version
orvik-batch --open /usr/share/doc/orvik/examples/netscape4.ldif --save book.nv
[ "$(grep -c '^dn: ' /usr/share/doc/orvik/examples/netscape4.ldif)" = \
    "$(grep -c 'Type:Entry' book.nv)" ]
orvik-book convert /usr/share/doc/orvik/examples/netscape4.ldif -o contacts.vcf
orvik-book diff /usr/share/doc/orvik/examples/netscape4.ldif contacts.vcf
dpkg --remove orvik
test ! -e /usr/share/orvik
TRY
# Each command is a hook, so nothing is left of the system.
mmdebstrap --variant=apt --aptopt="$work/apt.conf" \
    --customize-hook="cp '$work/orvik.deb' '$work/try' \"\$1/root/\"" \
    --customize-hook='chroot "$1" sh /root/try' \
    bookworm /dev/null "$work/debian.list" >"$work/log" 2>&1 || {
    tail -n 60 "$work/log"
    exit 1
}
