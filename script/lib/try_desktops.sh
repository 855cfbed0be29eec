# Headless desktops with two displays in a fresh Debian, for script/try-package. To be sourced.
# shellcheck shell=bash disable=SC2154
#
# All have displays of 1000 × 600 side by side. The docks on them are printed as <width>x<height>+<x>+<y>.

display=:${TRY_DISPLAY:-160}
desktop_environment=()

# in_session <command...>: runs it as the user in the session of the current desktop.
in_session() {
    as_user env "${desktop_environment[@]}" "$@"
}

# until_true <command...>: waits for up to 20 seconds.
until_true() {
    local i
    for ((i = 0; i < 100; ++i)); do
        "$@" > /dev/null 2>&1 && return
        sleep 0.2
    done
    fail "script/try-package: timed out: $*"
}

start_x_desktop() {
    install_inside openbox xvfb x11-utils x11-xserver-utils
    mkdir -p "$root/tmp/.X11-unix"
    chmod 1777 "$root/tmp/.X11-unix"
    chroot "$root" /usr/bin/Xvfb "$display" -screen 0 2000x600x24 -noreset -nolisten tcp \
        > "$root/tmp/xvfb.log" 2>&1 &
    desktop_environment=("DISPLAY=$display")
    until_true in_session xset q
    in_session xrandr --setmonitor '*A' 1000/300x600/180+0+0 screen
    in_session xrandr --setmonitor B 1000/300x600/180+1000+0 none
    in_session openbox > "$root/tmp/openbox.log" 2>&1 &
}

x_docks() {
    in_session xwininfo -root -tree | grep -F '("vireline" "Vireline")' | awk '{print $1}' |
        while read -r window; do
            in_session xprop -id "$window" _NET_WM_WINDOW_TYPE | grep -q _NET_WM_WINDOW_TYPE_DOCK &&
                in_session xwininfo -id "$window" | awk '
                    /Absolute upper-left X/ { x = $NF } /Absolute upper-left Y/ { y = $NF }
                    /Width:/ { w = $NF } /Height:/ { h = $NF } /Map State:/ { state = $NF }
                    END { if (state == "IsViewable") print w "x" h "+" x "+" y }'
        done || true
}

wayland_socket() {
    find "$root/home/$name/.run" -name 'wayland-*' -type s -printf '%f\n' | grep .
}

# await_wayland_desktop <name> [<variable=value>...]: waits until a compositor can be used.
await_wayland_desktop() {
    until_true wayland_socket
    desktop_environment=("WAYLAND_DISPLAY=$(wayland_socket)" XDG_SESSION_TYPE=wayland
        "XDG_CURRENT_DESKTOP=$1" "${@:2}")
    until_true in_session grim -t ppm /tmp/empty.ppm
}

start_sway_desktop() {
    install_inside qt6-wayland sway grim
    # Without Xwayland and with windows hidden, so that only layer surfaces can be seen.
    printf '%s\n' 'xwayland disable' 'for_window [app_id=".*"] move scratchpad' \
        'output * resolution 1000x600' 'output * bg #335577 solid_color' \
        'output HEADLESS-1 position 0 0' 'output HEADLESS-2 position 1000 0' > "$root/tmp/sway.config"
    as_user env WLR_BACKENDS=headless WLR_RENDERER=pixman WLR_HEADLESS_OUTPUTS=2 WLR_LIBINPUT_NO_DEVICES=1 \
        sway --config /tmp/sway.config > "$root/tmp/sway.log" 2>&1 &
    until_true wayland_socket
    await_wayland_desktop sway \
        "SWAYSOCK=/home/$name/.run/$(basename "$(ls "$root/home/$name/.run"/sway-ipc.*)")"
}

has_labwc() {
    inside apt-cache show labwc > /dev/null 2>&1
}

# Its windows are minimised, for the same reason.
start_labwc_desktop() {
    install_inside qt6-wayland labwc wlr-randr grim
    rm -f "$root/home/$name/.run"/wayland-*
    mkdir -p "$root/tmp/labwc"
    printf '%s\n' '<labwc_config><windowRules><windowRule identifier="*"><action name="Iconify"/>' \
        '</windowRule></windowRules></labwc_config>' > "$root/tmp/labwc/rc.xml"
    as_user env WLR_BACKENDS=headless WLR_RENDERER=pixman WLR_HEADLESS_OUTPUTS=2 WLR_LIBINPUT_NO_DEVICES=1 \
        labwc --config-dir /tmp/labwc > "$root/tmp/labwc.log" 2>&1 &
    await_wayland_desktop labwc:wlroots
    in_session wlr-randr --output HEADLESS-1 --custom-mode 1000x600 --pos 0,0 \
        --output HEADLESS-2 --custom-mode 1000x600 --pos 1000,0
    until_true is_still
}

# Whether the picture of the empty desktop is final: labwc draws a pointer.
is_still() {
    in_session grim -t ppm /tmp/empty.ppm
    sleep 0.5
    in_session grim -t ppm /tmp/now.ppm
    cmp "$root/tmp/empty.ppm" "$root/tmp/now.ppm"
}

# What differs from the empty desktop: the tools of older versions of sway do not list layer surfaces.
wayland_docks() {
    in_session grim -t ppm /tmp/now.ppm
    local header
    header=$(head -n 3 "$root/tmp/now.ppm" | wc -c)
    cmp -l "$root/tmp/empty.ppm" "$root/tmp/now.ppm" | awk -v header="$header" '
        { pixel = int(($1 - 1 - header) / 3); x = pixel % 2000; y = int(pixel / 2000) }
        NR == 1 { left = right = x; top = y }
        { if (x < left) left = x; if (x > right) right = x; bottom = y }
        END { if (NR > 0) print right - left + 1 "x" bottom - top + 1 "+" left "+" top }' || true
}

# run_from_menu <docks>: starts the program, and waits for what the command `docks` prints.
run_from_menu() {
    in_session desktop-file-validate /usr/share/applications/vireline.desktop
    in_session gio launch /usr/share/applications/vireline.desktop > "$root/tmp/vireline.log" 2>&1 &
    local i shown=
    for ((i = 0; i < 100; ++i)); do
        shown=$("$1")
        [[ -n $shown ]] && break
        sleep 0.2
    done
    cat "$root/tmp/vireline.log"
    [[ -n $shown ]] || fail "script/try-package: no dock came up"
    printf 'dock: %s\n' "$shown"
    # The primary display counts as that of the desktop's own dock, so there must be exactly one dock, on the
    # other.
    [[ $shown =~ \+(1[0-9]{3})\+[0-9]+$ && $(wc -l <<< "$shown") == 1 ]] ||
        fail "script/try-package: that is not one dock on the second display"
    inside stat --format="%a %U %n" "/home/$name/.local/share/Vireline" \
        "/home/$name/.local/share/Vireline/vireline.log"
    tail -n 3 "$root/home/$name/.local/share/Vireline/vireline.log"
}
