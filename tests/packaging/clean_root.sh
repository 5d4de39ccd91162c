#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs, uses and removes the Debian package PACKAGE on a clean system:
# clean_root.sh ROOT PACKAGE CARDS RELEASE
# ROOT is the root folder of a Debian of that release ("bookworm"), which the script changes, and
# CARDS is an interchange folder to import. The caller runs the script in its own mount and process
# namespace, so that its mounts and processes end with it.
set -euo pipefail

root=$(realpath "$1")
package=$2
cards=$3
release=$4
name=velmora-converter
user=hanako
home=/home/$user

say() { printf '\n== %s\n' "$*"; }

fail()
{
    printf 'FAILED: %s\n' "$*" >&2
    exit 1
}

in_root() { env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root DEBIAN_FRONTEND=noninteractive \
    "${proxies[@]}" chroot "$root" "$@"; }

# Runs a command as the user. Its texts are English unless the caller sets LC_ALL before the
# command.
as_user() { in_root setpriv --reuid="$user" --regid="$user" --clear-groups \
    env HOME="$home" LC_ALL=C.UTF-8 XDG_RUNTIME_DIR=/run/user/1000 "$@"; }

expect_status()
{
    local expected=$1 status=0
    shift
    "$@" || status=$?
    [ "$status" -eq "$expected" ] || fail "status $status instead of $expected: ${*: -4}"
}

prepare_root()
{
    say "A clean system"
    mapfile -t proxies < <(env | grep -i '^[a-z]*_proxy=' || true)
    mount -t proc proc "$root/proc"
    mount --rbind /dev "$root/dev"
    cp /etc/resolv.conf /etc/hosts "$root/etc/"
    # shellcheck disable=SC2016 # apt-get replaces $(...) itself
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Origin: Debian' |
        grep -w "$release" | sort -u >"$root/etc/apt/sources.list"
    in_root useradd --create-home "$user"
    install -d -o 1000 -g 1000 -m 700 "$root/run/user/1000"
    cp "$package" "$root/package.deb"
    cp -r "$cards" "$root$home/cards"
    in_root chown -R "$user:$user" "$home"
    in_root apt-get update -qq
}

install_with_dependencies()
{
    say "Installed with what it depends on, and nothing recommended"
    in_root apt-get install -qq --yes --no-install-recommends ./package.deb >/dev/null
    in_root dpkg --list "$name" | tail -n 1
    in_root dpkg --audit
}

# Prints every file of the root with a checksum of its contents, except for the files that the
# package manager and the system write for themselves.
snapshot()
{
    (cd "$root" && find . -xdev \( -path ./var/log -o -path ./var/cache -o -path ./var/lib/dpkg \
        -o -path ./var/lib/apt -o -path ./package.deb \) -prune \
        -o -type f -exec sha256sum {} + -o -printf '%y %m %l  %p\n' | LC_ALL=C sort)
}

remove_and_look_for_leftovers()
{
    say "Removed: nothing is left of its files"
    local files file
    files=$(in_root dpkg --listfiles "$name")
    in_root dpkg --purge "$name"
    while read -r file; do
        [ -d "$root$file" ] || [ ! -e "$root$file" ] || fail "$file is left"
    done <<<"$files"
    files=$(find "$root" -xdev -iname '*velmora*' -not -path "$root$home/*")
    [ -z "$files" ] || fail "left: $files"
}

import_and_export()
{
    say "Cards are imported and exported by an ordinary user"
    as_user velmora-convert --version
    expect_status 0 as_user velmora-convert create "$home/Cards.vmdb"
    expect_status 0 as_user velmora-convert check "$home/cards"
    expect_status 0 as_user velmora-convert import --yes "$home/cards" "$home/Cards.vmdb"
    expect_status 0 as_user velmora-convert verify "$home/Cards.vmdb"
    expect_status 0 as_user velmora-convert recover "$home/Cards.vmdb"
    as_user mkdir "$home/exported"
    expect_status 0 as_user velmora-convert export --yes "$home/Cards.vmdb" "$home/exported"
    expect_status 3 as_user velmora-convert import --yes "$home/no such folder" "$home/Cards.vmdb"
    local count
    count=$(sqlite3 "$root$home/Cards.vmdb/Velmora.sqldb" 'SELECT count(*) FROM ZCARD')
    [ "$count" -eq 12 ] || fail "$count cards in the card database"
    [ "$(find "$root$home/exported" -name '*.jpg' | wc -l)" -gt 12 ] || fail "images are missing"
}

japanese_texts()
{
    say "Japanese where it is wanted"
    as_user LC_ALL=ja_JP.UTF-8 velmora-convert --help | grep -F 名刺データベース | head -n 1
    [ -e "$root/usr/share/qt6/translations/qtbase_ja.qm" ] || fail "Qt's texts are missing"
    [ -e "$root/usr/share/poppler/cMap/Adobe-Japan1/90ms-RKSJ-H" ] || fail "no PDF encodings"
}

# Starts the program with the given Qt platform. The window must stay open until timeout sends a
# signal, and the program must then end without an error.
window_on()
{
    local platform=$1 status=0 errors="$root/errors"
    as_user QT_QPA_PLATFORM="$platform" DISPLAY="${display:-}" timeout --preserve-status 5 \
        VelmoraConverter 2>"$errors" &
    local program=$!
    sleep 3
    if [ "$platform" = xcb ]; then
        DISPLAY=$display xwininfo -root -tree | grep -F '("VelmoraConverter"' || fail "no window"
    fi
    wait "$program" || status=$?
    cat "$errors"
    [ "$status" -eq 0 ] || fail "the window ended with $status on $platform"
    rm "$errors"
}

windows()
{
    say "The window opens without a display and on X11"
    window_on offscreen
    mkdir -p "$root/tmp/.X11-unix"
    mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
    local server_says
    server_says=$(mktemp)
    Xvfb -displayfd 3 -nolisten tcp 3>"$server_says" 2>/dev/null &
    for _ in $(seq 50); do
        [ -s "$server_says" ] && break
        sleep 0.1
    done
    display=:$(cat "$server_says")
    rm "$server_says"
    window_on xcb
    kill %Xvfb
    umount "$root/tmp/.X11-unix"
    rmdir "$root/tmp/.X11-unix"

    say "Wayland: there is a plugin that looks for a compositor"
    { as_user QT_QPA_PLATFORM=wayland VelmoraConverter 2>&1 || true; } |
        grep -F 'Failed to create wl_display' || fail "no Wayland plugin"
}

only_the_users_files_are_left()
{
    say "What is there now and was not before"
    local changed
    changed=$(LC_ALL=C comm -3 "$1" "$2" | sed 's/^.*  \.//' | sort)
    grep -v '\.jpg$' <<<"$changed"
    if grep -vE "^$home(/|$)" <<<"$changed"; then
        fail "these files are not the user's"
    fi
    [ -s "$root$home/Library/Logs/VelmoraConverter.log" ] || fail "the user's log is gone"
    [ -d "$root$home/Cards.vmdb" ] || fail "the user's card database is gone"
}

prepare_root
install_with_dependencies
remove_and_look_for_leftovers
before=$(mktemp)
after=$(mktemp)
snapshot >"$before"
in_root dpkg --install package.deb >/dev/null
import_and_export
japanese_texts
windows
remove_and_look_for_leftovers
snapshot >"$after"
only_the_users_files_are_left "$before" "$after"
rm "$before" "$after"
say "Passed"
