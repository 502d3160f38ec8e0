# Sourced by windows/setup and windows/test.
# shellcheck shell=bash
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit
. .ci/setup.sh

# Where all of it lies, outside of the tree.
export NEWPRO_WINDOWS=${NEWPRO_WINDOWS:-${XDG_CACHE_HOME:-$HOME/.cache}/newProDialog-windows}

# What Debian has for it, and the steps by which windows/setup builds the rest.
# shellcheck disable=SC2034  # whoever sources this uses them
windows_packages=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine64 wine make dpkg-dev
                  libvalijson-dev qttranslations5-l10n)
# shellcheck disable=SC2034
windows_steps=(qtbase qtsvg icu libzip freexl googletest benchmark headers fonts)
