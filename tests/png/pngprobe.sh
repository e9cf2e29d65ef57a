#!/usr/bin/env bash
# What the command line of pngprobe does, one check a line. Prints "N passed, N failed" at the end.
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"

Output=
Errors=
Status=0
Probe=("$BUILD/tools/pngprobe/pngprobe")
[[ -x ${Probe[0]} ]] || Probe=(wine "$BUILD/tools/pngprobe/pngprobe.exe")

probe() {
    rm -f out.raw
    Output=$("${Probe[@]}" "$@" 2>errors.txt | tr -d '\r')
    Status=${PIPESTATUS[0]}
    Errors=$(tr -d '\r' <errors.txt)
}

explain() {
    printf '  exit %s\n  output: %s\n  errors: %s\n  written: %s\n' "$Status" "$Output" "$Errors" "$(hex out.raw)"
}

hex() { od -An -v -tx1 "$1" 2>/dev/null | tr -d ' \n'; }
# Bytes given as hexadecimal digits.
bytes() { printf '%b' "$(printf '%s' "$1" | sed 's/../\\x&/g')"; }
# chunk TYPE HEX — no decoder here looks at the check sum.
chunk() { bytes "$(printf '%08x' $((${#2} / 2)))$(printf '%s' "$1" | od -An -tx1 | tr -d ' \n')${2}00000000"; }

# Two pixels, red and half transparent blue, above two more, white and nothing at all; in one stored block.
Rows=00ff0000ff0000ff8000ffffffff12345600
make_pictures() {
    {
        bytes 89504e470d0a1a0a
        chunk IHDR 00000002000000020806000000
        chunk gAMA 0000b18f
        chunk bKGD 00ff00800000
        chunk tEXt 5469746c650049636f6e
        chunk tIME 07d903070e0509
        chunk IDAT "7801011200edff${Rows}00000000"
        chunk IEND ''
    } >good.png
    cp good.png 'two words.png'
    cp good.png "ütf.png"
    head -c 60 good.png >cut.png
    printf 'no picture' >text.png
    {
        bytes 89504e470d0a1a0a
        chunk IHDR 00000002000000020806000000
        chunk IEND ''
    } >empty.png
}

shows() { [[ $Status == 0 && $'\n'$Output$'\n' == *$'\n'"$1"$'\n'* ]]; }
wrote() { [[ $Status == 0 && $(hex out.raw) == "$1" ]]; }
no_picture() { [[ $Status == 1 && $'\n'$Output$'\n' == *$'\n'"$1"$'\n'* && ! -e out.raw ]]; }
failed() { [[ $Status == 1 && $Errors == "pngprobe: "*"$1"* ]]; }
refused() { [[ $Status == 2 && -z $Output && $Errors == "usage: pngprobe FILE"* && ! -e out.raw ]]; }

descriptions() {
    probe good.png
    check "the size" shows "size: 2 x 2"
    check "the depth" shows "depth: 8"
    check "the colour type" shows "colour type: 6"
    check "the interlace method" shows "interlace: 0"
    check "no error" shows "error number: 0"
    check "the text, its ends marked" shows 'text: Title\0Icon\0'
    check "no compressed text" shows "zText: "
    check "the time" shows "time: 07.03.2009 14:05:09"
    check "the gamma" shows "gamma: 0.45455"
    check "the background" shows "background: #FF8000"
    probe 'two words.png'
    check "a name with a blank" shows "size: 2 x 2"
    probe "ütf.png"
    check "a name beyond ASCII" shows "size: 2 x 2"
}

pictures() {
    local rgba=ff0000ff0000ff80ffffffff12345600
    probe good.png --rgba out.raw
    check "--rgba behind the file" wrote $rgba
    probe --rgba out.raw good.png
    check "--rgba before the file" wrote $rgba
    check "--rgba also describes" shows "size: 2 x 2"

    # (0 * 128 + 64 * 127 + 255) / 256 = 32, (255 * 128 + 0 + 255) / 256 = 128
    local over=ff0000200080ffffff400000
    probe good.png --over 400000 out.raw
    check "--over behind the file" wrote $over
    probe --over 400000 out.raw good.png
    check "--over before the file" wrote $over
    probe --over 400000 --style 3 out.raw good.png
    check "style 3 is the default" wrote $over
    probe --style 3 good.png --over 400000 out.raw
    check "--style before everything" wrote $over
    probe good.png --over 400000 --style 2 out.raw
    check "style 2 is the red channel in grey" wrote ffffff200000ffffff400000
    probe good.png --over 00FFff --style 5 out.raw
    check "style 5 is black, the colour in both cases" wrote 000000007f7f00000000ffff
    probe good.png --style 255 --over 000000 out.raw
    check "style 255" wrote 000000000000000000000000
}

failures() {
    probe cut.png
    check "a file cut short" no_picture "error number: 3 (a chunk reaches beyond the end of the file)"
    probe text.png --rgba out.raw
    check "no PNG" no_picture "error number: 1 (no PNG signature)"
    probe --over 123456 out.raw empty.png
    check "no image data" no_picture "error number: 4 (no image data)"
    probe missing.png
    check "a missing file" failed "run-time error 53"
    probe nowhere/missing.png
    check "a missing folder" failed "run-time error 76"
    probe good.png --rgba nowhere/out.raw
    check "a place that cannot be written" failed "cannot write"
}

refusals() {
    local arguments
    while read -r -a arguments; do
        probe "${arguments[@]}"
        check "refused: pngprobe ${arguments[*]}" refused
    done <<'LINES'

good.png cut.png
--rgba
--rgba good.png
good.png --rgba
good.png --rgba out.raw cut.png
good.png --rgba out.raw --over 000000
good.png --rgba out.raw --rgba out.raw
good.png --over out.raw
good.png --over 12345 out.raw
good.png --over 1234567 out.raw
good.png --over 12345g out.raw
good.png --over -12345 out.raw
good.png --over 000000
good.png --over 000000 --style
good.png --over 000000 --style 256 out.raw
good.png --over 000000 --style -1 out.raw
good.png --over 000000 --style x out.raw
good.png --style 3
good.png --rgba out.raw --style 3
good.png --bgra out.raw
--help good.png
good.png -h cut.png
LINES
}

helps() { [[ $Status == 0 && -z $Errors && $Output == "usage: pngprobe FILE"* ]]; }

help() {
    probe --help
    check "--help" helps
    probe -h
    check "-h" helps
}

make_pictures
help
descriptions
pictures
failures
refusals
sum_up
