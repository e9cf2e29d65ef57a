#!/usr/bin/env bash
# The form designer of the demo used with pointer and keys on a screen of its own: children are placed on two tabs, properties
# set, the form saved, run and opened again. The texts and places of its windows, the pixels on the screen and the file
# tell what happened; the pictures are for whoever wants to look. Prints "N passed, N failed" at the end.
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"
# shellcheck source=tests/scripts/screen.sh
source "$ROOT/tests/scripts/screen.sh"
# shellcheck source=tests/demos/driving.sh
source "$ROOT/tests/demos/driving.sh"

explain() { cat texts; }

placing() {
    design "$(here own.form)" &
    check "it opens, with a file that is to be made" wait_until is_there '^own.form - design$'
    focus ' - design$'
    check "the control is there" wait_until find_control
    take_tool Label
    drag 37 42 135 62
    check "a label is drawn, to the grid" wait_until stands Label1 36 44 100 20
    take_tool 'Text box'
    drag 259 82 157 57
    check "so is a text box, from any corner" wait_until stands Text1 156 56 104 28
    check "it is the chosen one" shows '^Static .* Text of Text1$'
    check "with eight handles" test "$(grep -c '^VantikHostForm .* 7x7' texts)" = 8
    check "the title says that nothing is saved" shows '^title \*own.form'
    press_bar 1
    check "a press on a bar shows its tab" wait_until is_off_page Label1
    check "nothing of the other tab is chosen any more" wait_until shows 'Nothing chosen'
    check "nor to be seen" wait_until is_empty 300 50 30 40
    take_tool Button
    click 61 99
    check "a press alone places a button of the usual size" wait_until stands Button1 60 100 88 28
    picture 1-placed
}

moving() {
    drag 100 110 141 131
    check "a child is dragged, by lines of the grid" wait_until stands Button1 100 120 88 28
    drag 188 148 209 160
    check "so are its handles" wait_until stands Button1 100 120 108 40
    press Left Up
    check "arrow keys move it by a pixel" wait_until stands Button1 99 119 108 40
    press shift+Right shift+Down
    check "and with Shift they resize it" wait_until stands Button1 99 119 109 41
    press ctrl+z ctrl+z
    check "each is a step to be undone" wait_until stands Button1 99 119 108 40
    press ctrl+z ctrl+z ctrl+z
    check "and so is a drag" wait_until stands Button1 100 120 88 28
    press ctrl+y
    check "and done again" wait_until stands Button1 100 120 108 40
    point_at 150 130
    xdotool mousedown 1
    point_at 200 200
    check "in a drag it follows the pointer" wait_until stands Button1 152 192 108 40
    press Escape
    check "and goes back when that is called off" wait_until stands Button1 100 120 108 40
    xdotool mouseup 1
    xdotool keydown alt
    drag 150 130 155 133
    xdotool keyup alt
    check "with Alt it stands beside the grid" wait_until stands Button1 105 123 108 40
    press ctrl+z
    check "and back" wait_until stands Button1 100 120 108 40
    press Right
    check "after an undo the arrow keys go on" wait_until stands Button1 101 120 108 40
    press ctrl+z
    wait_until stands Button1 100 120 108 40
    take_tool List
    drag 300 100 400 200
    check "a list is placed" wait_until shows '^Static .* Text of List1$'
    press Delete
    check "and removed" wait_until lacks '^ListBox'
    press ctrl+z
    check "which is undone" wait_until shows '^ListBox'
    press ctrl+z
    check "with the placing" wait_until lacks '^ListBox'
}

texts() {
    click 150 130
    check "a press chooses" wait_until shows '^Static .* Text of Button1$'
    click 300 300
    check "and one beside it nothing" wait_until shows 'Nothing chosen'
    point_at 150 130
    xdotool click --repeat 2 --delay 60 1
    xdotool type --delay 40 'Say "yes"'
    check "two lead to its text, which is typed" wait_until shows '^Button [0-9]+ [0-9,]+ 108x40 Say "yes"$'
    press ctrl+z
    check "and undone as one step" wait_until shows '^Button [0-9]+ [0-9,]+ 108x40 Button1$'
    press ctrl+y
    check "and done again" wait_until shows '^Button [0-9]+ [0-9,]+ 108x40 Say "yes"$'
}

properties() {
    click 300 300
    press F4
    check "F4 shows the control's property pages" wait_until is_there '^Properties$'
    focus '^Properties$'
    xdotool mousemove --window "$(window '^Properties$')" 312 44 click --repeat 2 --delay 60 1 type --delay 40 100
    press alt+a
    picture 2-properties
    check "a width that is applied is the bars'" wait_until bars_are_narrower
    press Escape
    check "the pages are closed" wait_until is_gone '^Properties$'
    BarWidth=100
    focus ' - design$'
    press ctrl+z
    check "and that is undone with the rest" wait_until bars_are_wider
    press ctrl+y
    check "and done again" wait_until bars_are_narrower
    point_at 300 300
    xdotool click --repeat 2 --delay 60 1
    check "two presses on the page show them, too" wait_until is_there '^Properties$'
    focus '^Properties$'
    press Escape
    check "once" wait_until is_gone '^Properties$'
}
# The buttons beside the row, where they are behind three bars of 132; behind three of 100 nothing is there.
bars_are_narrower() { is_empty 40 20 420 5; }
bars_are_wider() { is_drawn 40 20 420 5; }

saving() {
    press ctrl+s
    check "saving takes the mark away" wait_until shows '^title own.form - design'
    check "the file names the kinds and the control's keys" has_lines 'VantikFrameTab form 1' \
        'Label Label1' 'TextBox Text1' 'Button Button1' '        BarWidth = 100' '        TabCount = 3' \
        '        ActiveTab = 1' '    Text = "Say \"yes\""' '    Container = "VantikFrameTab1"'
    check "children of other tabs keep the place that says so" has_lines "    Left = $((36 * 15 + 40000))" \
        "    Left = $((100 * 15))"
}
has_lines() {
    local line
    for line; do grep -qxF -- "$line" own.form || return 1; done
}

running() {
    press F5
    check "F5 runs the form" wait_until is_there '^own.form - run$'
    Seen=' - run'
    focus ' - run$'
    check "with its control" wait_until find_control
    check "on the tab that was saved" wait_until is_on_page 'Say "yes"'
    check "its child is seen" wait_until is_drawn 108 40 100 120
    check "the others' are not" is_off_page Label1
    check "there are no handles" lacks ' 7x7 '
    check "where theirs would be nothing is" wait_until is_empty 300 50 30 40
    picture 3-running
    press_bar 0
    check "the first tab shows its own" wait_until is_on_page Label1
    check "both of them" is_on_page Text1
    check "to be seen" wait_until is_drawn 100 20 36 44
    check "and the button is not" is_off_page 'Say "yes"'
    check "nor to be seen" wait_until is_empty 108 40 100 120
    press_bar 2
    check "the last tab is empty" wait_until is_empty 500 250 20 40
    press_bar 0
    wait_until is_on_page Text1
    click 200 70
    press ctrl+a
    xdotool type --delay 40 Ada
    check "text boxes take what is typed" wait_until shows '^Edit .* Ada'
    press shift+F5
    check "Shift+F5 ends it" wait_until is_gone ' - run$'
    Seen=' - design'
    check "what was typed there is not the form's" wait_until shows '^Edit .* Text1$'
    check "and the form is not changed" shows '^title own.form'
    focus ' - design$'
    press F5
    check "it runs again" wait_until is_there '^own.form - run$'
    focus ' - run$'
    press alt+F4
    check "until it is closed" wait_until is_gone ' - run$'
    focus ' - design$'
    find_control
    press_bar 0
    check "under design it goes on" wait_until is_on_page Label1
    press ctrl+z
    check "and back" wait_until shows '^title own.form'
}

again() {
    press alt+F4
    check "it closes without a question when all is saved" wait_until is_gone ' - design$'
    cp own.form saved
    design "$(here own.form)" &
    check "the file opens again" wait_until is_there '^own.form - design$'
    focus ' - design$'
    check "with its children" wait_until is_on_page 'Say "yes"'
    rm own.form
    press ctrl+s
    check "and is saved again" wait_until test -s own.form
    check "the same to the byte" cmp own.form saved
}

# refuses WHAT FILE TEXT — opened from within the designer it is refused with that text, and nothing changes.
refuses() {
    press ctrl+o
    wait_until is_there '^Open a form$'
    focus '^Open a form$'
    xdotool type --delay 20 "$(here "$2")"
    press Return
    check "$1 is refused" wait_until is_there '^VantikFrameTab designer$'
    Seen='VantikFrameTab designer'
    check "with the place and what is wrong" wait_until shows "$3"
    Seen=' - design'
    focus '^VantikFrameTab designer$'
    press Return
    wait_until is_gone '^VantikFrameTab designer$'
    focus ' - design$'
    check "and nothing changed" wait_until is_on_page 'Say "yes"'
    check "nor the file's name" shows '^title own.form - design'
}

damage() {
    printf 'no form\n' >foreign.form
    sed 's/^    Height = .*/    Height = x1/' saved >number.form
    sed 's/^        BarWidth = .*/        BarWidth 75/' saved >line.form
    sed 's/^        BarWidth = .*/        BarWidth = "wide"/' saved >value.form
    refuses "another file" foreign.form 'foreign.form, line 1: this is no form'
    refuses "a number that is none" number.form "number.form, line 4: 'x1' is no whole number"
    refuses "a property that is none" line.form "line.form, line $(grep -n 'BarWidth 75' line.form | cut -d: -f1): there is no '='"
    refuses "a value that the control refuses" value.form 'value.form, Loading the control failed'
    press_bar 0
    wait_until shows '^title \*own.form'
    press alt+F4
    check "closing asks about changes" wait_until is_there '^VantikFrameTab designer$'
    focus '^VantikFrameTab designer$'
    press n
    check "and closes" wait_until is_gone ' - design$'
    check "with the file as it was" cmp own.form saved
}

open_screen 1024x768
placing
moving
texts
properties
saving
running
again
damage
sum_up
