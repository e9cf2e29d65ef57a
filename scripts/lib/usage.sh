# shellcheck shell=bash
# What a command says of itself: the comment at the top of its file.

usage() { sed -n -e '2,/^[^#]/s/^# \{0,1\}//p' "$0"; }

wrong_usage() {
    usage >&2
    exit 2
}

# answer_help "$@" — for a command that takes at most one argument, which is no option.
answer_help() {
    case ${1-} in
    -h | --help) usage && exit ;;
    -*) wrong_usage ;;
    esac
    (($# <= 1)) || wrong_usage
}

# take_no_arguments "$@"
take_no_arguments() {
    answer_help "$@"
    (($# == 0)) || wrong_usage
}
