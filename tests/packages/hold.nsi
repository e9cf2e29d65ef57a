; A program that has a file of the installed control open, so that nobody can write to it, until there is a file "go on".
; PROCESSOR is defined on the command line.
Unicode true
Name hold
OutFile "hold-${PROCESSOR}.exe"
SilentInstall silent
RequestExecutionLevel user

Section
  FileOpen $0 "C:\Program Files\VantikFrameTab\${PROCESSOR}\VantikFrameTab.ocx" r
  FileOpen $1 "$EXEDIR\held" w
  FileClose $1
  wait:
    Sleep 100
    IfFileExists "$EXEDIR\go on" 0 wait
SectionEnd
