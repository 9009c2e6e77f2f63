#!/usr/bin/env bash
# Runs the example tools of a build and prints each command line with what it printed; what goes to standard error is
# marked with "2>". Fails when a command does not end with the exit status that is expected of it.
#
#   examples/kivobackup/demo.sh <build directory>
set -euo pipefail
exec </dev/null # works with standard input closed, too

build="$(cd -- "${1:?"usage: demo.sh <build directory>"}" && pwd)"
cd -- "$(dirname -- "${BASH_SOURCE[0]}")"

work="$(mktemp -d)"
trap 'rm -rf -- "$work"' EXIT
cp -R -- "$build/examples/installation" "$work/installation"
mkdir -p -- "$work/minimal/etc"
cp -- ../../etc/kivobase.crg "$work/minimal/etc/"
cp -- *.xml *.crg "$work/"
cd -- "$work"

PATH="$build/examples/bin:$build/tools/bin:$PATH"
unset KIVO_ETC_DIR KIVO_PLUGINS_DIR KIVO_CONFIG_DIR KIVO_MAIN_LOG KIVOBACKUP_CONFIG
export KIVO_HOME=installation

title() {
    printf '\n== %s\n' "$*"
}

shown=0

# show <expected exit status> <command line>
show() {
    local expected="$1" line="$2" status=0
    printf '\n$ %s\n' "$line"
    eval "$line" >output 2>errors || status=$?
    cat output
    sed 's/^/2> /' errors
    if ((status != expected)); then
        printf 'demo.sh: exit status %d, expected %d\n' "$status" "$expected" >&2
        exit 1
    fi
    shown=$((shown + 1))
}

title "A backup: the command line, the machine's configuration, and defaults"
show 0 'cat installation/config/machine.config'
show 0 'kivobackup -database sales -target backup1::/srv/kivo -exclude "audit_*" -exclude scratch'

title "Flags may be shortened as long as they stay unique"
show 0 'kivobackup -data sales -tar /srv/kivo -incr -compr none -v -no -traceMask 7'
show 2 'kivobackup -data sales -tar /srv/kivo -c none'

title "Sources in their order: -loadConfiguration files, command line, application's file, machine's configuration"
show 0 'cat sales.xml careful.xml nightly.xml'
show 0 'KIVOBACKUP_CONFIG=nightly.xml kivobackup -loadConfiguration sales.xml -database ignored -target /srv/kivo \
    -parallel 16 -exclude scratch -loadConfiguration careful.xml'

title "All faults of a phase are reported together"
show 2 'kivobackup -target /srv/kivo -parallel many -compression -rateLimit 50 -ioShare 20 -window noon'
show 2 'kivobackup -database sales -target /srv/kivo -paralel 3 -verbose'
show 2 'kivobackup -database sales -database test -target /srv/kivo -target /srv/more'

title "Help"
show 0 'kivobackup -help'
show 0 'kivobackup -help -quiet'

title "A tool that describes its settings in code, and sets some itself"
show 0 'kivorestore -source backup1::/srv/kivo -database sales -quiet -help'
export KIVO_HOME=minimal
show 0 'kivorestore -source backup1::/srv/kivo -database sales -tab orders -tab lines -trans "#1-2-3-4" -over -mem 0.5'
show 2 'kivorestore -source /srv/kivo -database sales -s 8'
show 2 'kivorestore -source /srv/kivo -streams many -memory -overwrite -rename 2nd'
show 2 'kivorestore -source /srv/kivo -database sales -onError panic'
export KIVO_HOME=installation

title "Faults in the two file formats, and what the main log says afterwards"
export KIVO_MAIN_LOG=main.log
show 2 'kivobackup -loadConfiguration faulty.xml'
show 0 'cp faulty.crg installation/etc/'
show 2 'kivobackup -database sales -target /srv/kivo'
show 0 'cat main.log'

title "Where a value comes from, and what is wrong: a machine's configuration with mistakes"
show 0 'rm installation/etc/faulty.crg; sed "s/parallel=\"2\"/paralel=\"2\"/; s/best/bset/; s/14/two weeks/" installation/config/machine.config >faulty.config'
show 0 'mv faulty.config installation/config/machine.config; cat installation/config/machine.config'
show 1 'kivoconfig explain kivobackup --changed --config nightly.xml -- -database sales -target /srv/kivo -loadConfiguration careful.xml -parallel 16'
show 1 'kivoconfig check kivobackup --strict -- -database sales -target /srv/kivo -parallel many'

printf '\n== Everything shown was as expected: %d commands, faulty ones among them, ended as they should\n' "$shown"
