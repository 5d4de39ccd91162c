# SPDX-License-Identifier: GPL-3.0-or-later
# Completion of velmora-convert for fish. Commands, options and their descriptions are those of the
# program's own help, in the language of its texts.

function __velmora_convert_commands
    velmora-convert --help | string replace --filter --regex '^  ([a-z]+)(?: [A-Z]+)+ +(.*)' '$1\t$2'
end

function __velmora_convert_options
    velmora-convert --help | string replace --filter --regex '^  (--[a-z]+)(?: [A-Z]+)? +(.*)' '$1\t$2'
end

# The command and the operands before the cursor.
function __velmora_convert_given
    string match --invert -- '-*' (commandline --cut-at-cursor --current-process --tokenize)[2..]
end

function __velmora_convert_wants_operand
    set --local given (__velmora_convert_given)
    set --local operands (velmora-convert --help |
        string replace --filter --regex "^  $given[1]((?: [A-Z]+)+) .*" '$1' |
        string trim | string split ' ')
    test (count $given) -ge 1 -a (count $given) -le (count $operands)
end

complete --command velmora-convert --no-files
complete --command velmora-convert --condition "string match --quiet -- '-*' (commandline --current-token)" \
    --arguments '(__velmora_convert_options)'
complete --command velmora-convert --condition 'test (count (__velmora_convert_given)) -eq 0' \
    --keep-order --arguments '(__velmora_convert_commands)'
complete --command velmora-convert --condition __velmora_convert_wants_operand \
    --arguments '(__fish_complete_directories)'
