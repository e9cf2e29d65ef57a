# shellcheck shell=bash source-path=SCRIPTDIR
# Everything that ./demo and ./test share: messages, the lock, packages, builds, Wine.

Root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
BuildFolder=$Root/build
LogFolder=$BuildFolder/logs

# The messages and numbers of the tools are read by us.
UserLocale=${LC_ALL-unset}
export LC_ALL=C.UTF-8

source "$Root/scripts/lib/say.sh"
source "$Root/scripts/lib/usage.sh"
source "$Root/scripts/lib/lock.sh"
source "$Root/scripts/lib/packages.sh"
source "$Root/scripts/lib/build.sh"
source "$Root/scripts/lib/wine.sh"
source "$Root/scripts/lib/programs.sh"
source "$Root/scripts/lib/desktop.sh"
