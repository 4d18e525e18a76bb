#!/usr/bin/env bash
# complete.sh COMPLETION_FILE WORD...: what bash offers for the last WORD of the command line
# "WORD...", one offer a line, through the bash-completion framework as an interactive shell
# loads it.
set -u
completion=$1
shift
# shellcheck disable=SC1091
source /usr/share/bash-completion/bash_completion
# shellcheck disable=SC1090
source "$completion"
COMP_WORDS=("$@")
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
COMP_LINE="$*"
COMP_POINT=${#COMP_LINE}
COMPREPLY=()
_vellumar_cli
printf '%s\n' "${COMPREPLY[@]}"
