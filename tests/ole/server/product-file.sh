#!/usr/bin/env bash
# The built product as a file: it imports only what every Windows has, exports what a control has to, says which version
# it is, and its manifest says what is built. Prints "N passed, N failed" at the end.
set -uo pipefail

Product=$BUILD/src/ole/VantikFrameTab.ocx
Manifest=$BUILD/src/ole/VantikFrameTab.manifest
Map=$BUILD/src/ole/VantikFrameTab.map
SystemLibraries='advapi32 comctl32 gdi32 kernel32 msvcrt ole32 oleaut32 user32'
Exports='DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer'
Passed=0
Failed=0

check() {
    local what=$1 found=$2 expected=$3
    if [[ $found == "$expected" ]]; then
        Passed=$((Passed + 1))
    else
        Failed=$((Failed + 1))
        printf 'FAILED: %s\n  found:    %s\n  expected: %s\n' "$what" "$found" "$expected"
    fi
}

in_one_line() { sort | xargs; }

headers=$(x86_64-w64-mingw32-objdump -p "$Product")
imports=$(sed -n 's/.*DLL Name: //p' <<<"$headers" | tr '[:upper:]' '[:lower:]' | sed 's/\.dll$//')
foreign=$(grep -vxF "$(tr ' ' '\n' <<<"$SystemLibraries")" <<<"$imports" | in_one_line)
check 'libraries that not every system has' "$foreign" ''
check 'there are imports at all' "$(grep -cx kernel32 <<<"$imports")" 1
check 'exports' "$(sed -n 's/.*\] \(Dll[A-Za-z]*\)$/\1/p' <<<"$headers" | in_one_line)" "$Exports"
# The faults of a skin that the property page tells are an eighth of the code.
check 'at most 896 KiB' "$(($(stat -c %s "$Product") <= 896 * 1024))" 1
check 'no debugging information' "$(x86_64-w64-mingw32-objdump -h "$Product" | grep -c debug)" 0

# What of the compiler's run-time library keeps something that would stay when the module goes, or turns to other modules:
# per-thread storage, guards of local statics, the heap of exceptions, registered unwind tables.
check 'parts of the run-time library that the product does without' \
    "$(grep -oE '\((eh_globals|eh_alloc|emutls|guard|gthr-win32|unwind-dw2-fde)\.o\)|crtbegin\.o' "$Map" | in_one_line)" ''
check 'the map is that of the product' "$(grep -q 'runtime.dir/ExceptionState' "$Map" && echo yes)" yes
# The only module that is loaded is one of the system's, by its full path.
check 'functions that find other modules by name, or take what is not given back' \
    "$(grep -oE '\<(LoadLibrary|LoadPackagedLibrary|GetModuleHandle[AW]|TlsAlloc|FlsAlloc|CreateSemaphore)[A-Za-z]*' <<<"$headers" | in_one_line)" 'LoadLibraryW'

architecture=x86
[[ $BUILD != *win64 ]] || architecture=amd64

# How the file is protected.
protection='DYNAMIC_BASE NO_SEH NX_COMPAT'
[[ $architecture == x86 ]] || protection='DYNAMIC_BASE HIGH_ENTROPY_VA NX_COMPAT'
check 'protection' "$(sed -n '/^DllCharacteristics/,/^Size/s/^[[:space:]]*\([A-Z_]*\)$/\1/p' <<<"$headers" | in_one_line)" \
    "$protection"
sections=$(x86_64-w64-mingw32-objdump -h "$Product" | sed '1,/^Idx/d' | paste - - | grep -oE '\.[a-zA-Z_]+ .*')
check 'sections that can be written' "$(grep -v READONLY <<<"$sections" | cut -d ' ' -f 1 | in_one_line)" '.bss .data'
check 'sections that can be run' "$(grep CODE <<<"$sections" | cut -d ' ' -f 1 | in_one_line)" '.text'
check 'who guards the stack' "$(grep -oE 'lib(ssp|stack_guard)[a-z_]*\.a' "$Map" | sort -u | in_one_line)" libstack_guard.a

check 'architecture of the manifest' "$(grep -o 'processorArchitecture="[a-z0-9]*"' "$Manifest")" \
    "processorArchitecture=\"$architecture\""
# The identifiers of the library's source, by their places in it.
identifier() { grep -o 'uuid([0-9A-F-]*)' "$ROOT/idl/VantikFrameTab.idl" | sed -n "$1s/uuid(\(.*\))/\1/p"; }
check 'the first class of the manifest is the library'"'"'s' \
    "$(grep -o 'clsid="{[0-9A-F-]*}"' "$Manifest" | head -n 1)" "clsid=\"{$(identifier 7)}\""
check 'the others are the property pages' "$(grep -c 'description="Vantik Frame Tab: page ' "$Manifest")" 2
check 'the library of the manifest is the one that is built' \
    "$(grep -o 'tlbid="{[0-9A-F-]*}"' "$Manifest" | sort -u)" "tlbid=\"{$(identifier 1)}\""

# One version, whoever is asked: the project states it.
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' "$ROOT/CMakeLists.txt")
resource=$(x86_64-w64-mingw32-windres -J coff -O rc "$Product" | iconv -c -f ASCII)
stated() { sed -n "s/^ *VALUE \"$1\", \"\(.*\)\"$/\1/p" <<<"$resource"; }
check 'version in numbers' "$(sed -n 's/^ *\(FILE\|PRODUCT\)VERSION \(.*\)/\2/p' <<<"$resource" | sort -u)" "${version//./, }, 0"
check 'version of the file' "$(stated FileVersion)" "$version.0"
check 'version of the product' "$(stated ProductVersion)" "$version.0"
check 'name of the product' "$(stated ProductName)" VantikFrameTab
check 'copyright and licence' "$(stated LegalCopyright)" \
    "$(sed -n 3p "$ROOT/LICENSE"). $(head -n 1 "$ROOT/LICENSE")."
library=$(od -An -tu2 -j 24 -N 4 "$BUILD/idl/VantikFrameTab.tlb" | xargs)
check 'version of the type library' "${library/ /.}" "${version%.*}"
check 'version of the manifest' "$(grep -o '<assemblyIdentity [^>]*' "$Manifest" | grep -o ' version="[^"]*"')" \
    " version=\"$version.0\""
check 'version of the library in the manifest' "$(grep -o '<typelib [^>]*' "$Manifest" | grep -o ' version="[^"]*"')" \
    " version=\"${version%.*}\""
check 'the newest version in the list of changes' \
    "$(sed -n 's/^## \([0-9.]*\).*/\1/p' "$ROOT/CHANGELOG.md" | head -n 1)" "$version"

# The same bytes on every day, on every machine.
number_at() { od -An -tu4 -j "$1" -N 4 "$Product" | xargs; }
check 'time in the header' "$(number_at "$(($(number_at 60) + 8))")" 0
check 'files that name a path of this machine' \
    "$(grep -alF "$ROOT" "$Product" "$BUILD/idl/include/VantikFrameTabProject.h" "$BUILD/idl/VantikFrameTab.tlb")" ''
check 'when the library was made' "$(grep -ao 'Created by WIDL.*' "$BUILD/idl/VantikFrameTab.tlb" | grep -o ' at .*')" \
    ' at Thu Jan  1 00:00:00 1970'

printf '%s passed, %s failed\n' "$Passed" "$Failed"
[[ $Failed == 0 ]]
