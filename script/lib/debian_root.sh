# A fresh Debian in a folder, with an ordinary user and without services. To be sourced.
# shellcheck shell=bash

mirror=${DEBIAN_MIRROR:-http://deb.debian.org/debian}
name=tester
root=

inside() {
    chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}

as_user() {
    inside setpriv --reuid="$name" --regid="$name" --init-groups \
        env HOME="/home/$name" XDG_RUNTIME_DIR="/home/$name/.run" "$@"
}

install_inside() {
    inside apt-get install -q -y --no-install-recommends "$@"
}

# Ends every process in the current root.
end_processes() {
    local process
    [[ -n $root ]] || return 0
    find /proc -maxdepth 2 -name root -lname "$root" 2> /dev/null | while IFS=/ read -r _ _ process _; do
        kill -KILL "$process" 2> /dev/null || true
    done || true
    wait 2> /dev/null || true
}

# Also unmounts what is mounted there.
close_root() {
    local mounted
    end_processes
    for mounted in dev/shm dev/pts proc ccache; do
        umount --lazy "$root/$mounted" 2> /dev/null || true
    done
}

# make_root <suite> <folder>: replaces the folder by a fresh Debian, which becomes the current root.
make_root() {
    local suite=$1 cached=build/try-package/$1.tar
    root=$2
    close_root
    rm -rf --one-file-system "$root"
    mkdir -p "$root"
    if [[ ! -f $cached ]]; then
        debootstrap --variant=minbase "$suite" "$root" "$mirror"
        tar --create --file="$cached.part" --directory="$root" --one-file-system .
        mv "$cached.part" "$cached"
    else
        tar --extract --file="$cached" --directory="$root"
    fi
    mount -t proc proc "$root/proc"
    mount -t tmpfs tmpfs "$root/dev/shm"
    mount -t devpts -o newinstance,ptmxmode=0666 devpts "$root/dev/pts"
    cp /etc/resolv.conf "$root/etc/resolv.conf"
    # Packages that are installed there must not start services.
    printf '#!/bin/sh\nexit 101\n' > "$root/usr/sbin/policy-rc.d"
    chmod 0755 "$root/usr/sbin/policy-rc.d"
    # They are thrown away soon, so they need not survive a power cut.
    echo force-unsafe-io > "$root/etc/dpkg/dpkg.cfg.d/try-package"
    inside useradd --create-home "$name"
    inside install --directory --mode=0700 --owner="$name" "/home/$name/.run"
    inside apt-get update -q
}
