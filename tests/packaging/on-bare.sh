#!/bin/bash
# SPDX-FileCopyrightText: The Vortigo developers
# SPDX-License-Identifier: MIT
#
# on-bare.sh PACKAGE ARCHIVE DRIVER: shows that the Debian package, the archive and so the program run where no more is
# installed than on the least of Debian systems. Run as root on such a system, of which nothing else is expected: X
# server, window manager and then the package are installed. DRIVER is the tour's, built for this system or an older one.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
package=$(realpath "$1") archive=$(realpath "$2") driver=$(realpath "$3")
[[ -f $package && -f $archive && -f $driver ]] || {
    sed -n '5,7s/^# //p' "$0"
    exit 2
}

fail() {
    echo "on-bare: $*"
    exit 1
}
((EUID == 0)) || fail "only root installs packages"
! compgen -G '/usr/lib/*/libQt*' >/dev/null || fail "this system is not bare: it has Qt"

scratch=$(mktemp -d /var/tmp/on-bare-XXXXXX)
bare=$scratch/bare
server=
finish() {
    [[ -z $server ]] || kill "$server" 2>/dev/null || true
    wait 2>/dev/null || true
    umount -l "$bare"/{proc,dev} 2>/dev/null || true
    rm -rf --one-file-system "$scratch"
}
trap finish EXIT
chmod 755 "$scratch"

install() {
    DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "$@" >"$scratch/install.log" 2>&1 || {
        cat "$scratch/install.log"
        fail "could not install $*"
    }
}

# The system as it is now, for the archive alone. The name of a file that is there lasts longer than the file.
mkdir -p "$bare"/{home/nobody,opt,proc,dev,tmp,var/tmp} "$scratch/installed"
cp -a --one-file-system /bin /etc /lib* /sbin /usr "$bare"
chown 65534:65534 "$bare/home/nobody"
chmod 1777 "$bare"/{tmp,var/tmp}
mount --bind /proc "$bare/proc"
mount --rbind /dev "$bare/dev"
mount --make-rslave "$bare/dev"
(umask 022 && tar -xzf "$archive" -C "$scratch/installed" --strip-components=1 --no-same-owner)
cp -a "$scratch/installed" "$bare/opt/vtm"

apt-get update -q >"$scratch/update.log" 2>&1 || cat "$scratch/update.log"
install xvfb openbox libxtst6 libxkbcommon0 libwayland-client0

# startAlone: starts the archive's program as nobody in the system where nothing was installed, until it has painted
# its window and registered its file types, and ends it as a session does.
startAlone() {
    local types=$bare/home/nobody/.local/share/applications program loaded tries status=0
    Xvfb -displayfd 3 -screen 0 1024x768x24 3>"$scratch/display" >"$scratch/server.log" 2>&1 &
    server=$!
    for ((tries = 0; tries < 200; ++tries)); do
        [[ ! -s $scratch/display ]] || break
        sleep 0.05
    done
    chroot --userspec=65534:65534 "$bare" /usr/bin/env -i HOME=/home/nobody SDL_AUDIODRIVER=dummy \
        DISPLAY=":$(cat "$scratch/display")" /opt/vtm/bin/vtm &
    program=$!
    for ((tries = 0; tries < 600; ++tries)); do
        [[ ! -s $types/vtm-message.desktop ]] || break
        sleep 0.05
    done
    loaded=$(awk '$6 ~ /^\// { print $6 }' "/proc/$program/maps" | sort -u)
    kill "$program" 2>/dev/null || true
    wait "$program" || status=$?
    ((status == 0)) || fail "the program ended with $status"
    [[ -s $types/vtm-message.desktop ]] || fail "no window was painted"
    [[ -s $bare/home/nobody/.config/VTM/VTM.ini ]] || fail "there are no settings"
    grep -q '/opt/vtm/share/vtm/vtmfont\.ttf$' <<<"$loaded" || fail "no font was used, and the system has none"
    kill "$server"
    wait "$server" || true
    server=
    chroot --userspec=65534:65534 "$bare" /opt/vtm/bin/vtm-charset list >/dev/null || fail "vtm-charset"
    chroot --userspec=65534:65534 "$bare" /opt/vtm/bin/vtm-thumbnail --help >/dev/null || fail "vtm-thumbnail"
    chroot --userspec=65534:65534 "$bare" /opt/vtm/bin/vtm-check --help >/dev/null || fail "vtm-check"
}
echo "on-bare: the archive alone"
startAlone

# The archive's own libraries, for the driver only: they say nothing to what it starts.
cp "$driver" "$scratch/driver.bin"
cat >"$scratch/driver" <<DRIVER
#!/bin/sh
exec /lib64/ld-linux-x86-64.so.2 --library-path "$scratch/installed/lib/vtm:$scratch/installed/lib/vtm/spare" \
    "$scratch/driver.bin" "\$@"
DRIVER
chmod 755 "$scratch"/driver{,.bin}

# play KIND DRIVER
play() {
    "$here/tour.sh" "$scratch" "$1" "$here/../../tools/tour" "$2" >"$scratch/tour.log" 2>&1 || {
        cat "$scratch/tour.log"
        fail "the tour"
    }
}
echo "on-bare: the tour with the archive, as nobody in a folder that is read only"
play installed "$scratch/driver"

echo "on-bare: the tour with the package"
# By a copy: the user that apt fetches with need not be able to read it where it lies.
cp "$package" "$scratch/vtm.deb"
install "$scratch/vtm.deb"
play system "$driver"

qt=$(find /usr/lib -name libQt6Core.so.6)
if ! cmp -s "$qt" "$scratch/installed/lib/vtm/libQt6Core.so.6"; then
    echo "on-bare: the tour with the archive where the package has brought another Qt"
    export QT_PLUGIN_PATH=${qt%/*}/qt6/plugins
    [[ -d $QT_PLUGIN_PATH/platforms ]] || fail "there are no plugins in $QT_PLUGIN_PATH"
    play installed "$driver"
fi

mapfile -t files < <(dpkg-query --listfiles vtm | grep -F vtm)
apt-get purge -y -q vtm >"$scratch/purge.log" 2>&1 || cat "$scratch/purge.log"
((${#files[@]} > 0)) || fail "the package had no files"
for file in "${files[@]}"; do
    [[ ! -e $file ]] || fail "purging left $file"
done
echo "on-bare: everything was as it should be on Debian $(cat /etc/debian_version)"
