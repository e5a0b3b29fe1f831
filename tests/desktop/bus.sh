# A session bus of its own with the accessibility bus on it. To be sourced behind display.sh.
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 NO_AT_BRIDGE=0
unset DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS

# as_reader SCRIPT ARGUMENT...: runs a client of the accessibility bus. The bus goes, with all that it
# started, when the client is done, or after $patience seconds.
as_reader() {
    timeout --kill-after=5 "${patience:-50}" dbus-run-session -- \
        /usr/bin/python3 "$(dirname "$0")/$1" "${@:2}" >>"$log" 2>&1 ||
        fail "$1 was not content"
}
