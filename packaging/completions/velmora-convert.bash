# SPDX-License-Identifier: GPL-3.0-or-later
# Completion of velmora-convert for bash. Commands and options are those that the program's own help
# names, so that they never differ from it.

_velmora_convert()
{
    local current=${COMP_WORDS[COMP_CWORD]} help word previous=
    local -a given=()
    COMPREPLY=()
    help=$("${1/#\~/$HOME}" --help 2>/dev/null) || return

    if [[ $current == -* ]]; then
        local options
        options=$(sed -n 's/^  \(--[a-z]*\) .*/\1/p' <<<"$help")
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi
    # The value of an option is no operand.
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ $previous == -* ]] && grep -q "^  $previous [A-Z]" <<<"$help"; then
            previous=
            continue
        fi
        [[ $word == -* ]] || given+=("$word")
        previous=$word
    done
    if [[ $previous == -* ]] && grep -q "^  $previous [A-Z]" <<<"$help"; then
        return
    fi
    if [[ ${#given[@]} -eq 0 ]]; then
        local commands
        commands=$(sed -n 's/^  \([a-z][a-z]*\) [A-Z].*/\1/p' <<<"$help")
        mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current")
        return
    fi
    local -a operands
    read -ra operands < <(sed -n "s/^  ${given[0]}\(\( [A-Z][A-Z]*\)*\) .*/\1/p" <<<"$help")
    if [[ ${#given[@]} -le ${#operands[@]} ]]; then
        compopt -o dirnames
    fi
}

complete -F _velmora_convert velmora-convert
