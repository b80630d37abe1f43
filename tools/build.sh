# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154 # $root is the sourcing script's
# Sourced by the scripts that build: configure_preset and build_preset, with little output, and
# with_fixed_addresses.

# Quiet unless it fails: configure_preset PRESET [cmake arguments]
configure_preset() {
    local log
    log=$(mktemp)
    if ! (cd "$root" && cmake --preset "$@") >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

# Ninja's status lines become one line that counts; what a compiler or a step says stays.
# build_preset PRESET [cmake --build arguments]
build_preset() {
    local preset=$1 is_tty=0
    shift
    [[ -t 1 ]] && is_tty=1
    (cd "$root" && NINJA_STATUS='[%f/%t] ' cmake --build --preset "$preset" -j"$(nproc)" "$@" 2>&1) |
        awk -v is_tty="$is_tty" '
            function clear() { if (is_tty && shown) printf "\r\033[K"; shown = 0 }
            match($0, /^\[[0-9]+\/[0-9]+\] /) {
                split(substr($0, 2, RLENGTH - 3), count, "/")
                tenth = int(10 * count[1] / count[2])
                if (is_tty) {
                    printf "\r\033[K  step %d of %d", count[1], count[2]
                    shown = 1
                } else if (tenth > told) {
                    printf "  step %d of %d\n", count[1], count[2]
                    told = tenth
                }
                fflush()
                next
            }
            /^ninja: no work to do/ { next }
            # lrelease talks about each file that it writes.
            /^Updating .*\.qm/ || /^ +(Generated|Ignored) [0-9]+ / { next }
            { clear(); print; fflush() }
            END { clear() }'
}

# Runs a command without random addresses where the system allows it: the sanitizers of this
# compiler want fewer random bits than new kernels use. with_fixed_addresses COMMAND [arguments]
with_fixed_addresses() {
    if setarch "$(uname -m)" -R true 2>/dev/null; then
        setarch "$(uname -m)" -R "$@"
    else
        "$@"
    fi
}
