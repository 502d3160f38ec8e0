# Sourced by windows/setup and windows/test.
# shellcheck shell=bash
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit
. .ci/setup.sh

# Where all of it lies, outside of the tree.
export NEWPRO_WINDOWS=${NEWPRO_WINDOWS:-${XDG_CACHE_HOME:-$HOME/.cache}/newProDialog-windows}
