' The tabs of a form as a script keeps them, without a window: cscript //nologo tabs.vbs [go CAPTION | close CAPTION [yes]]
Option Explicit

Const PageCount = 40, LockedPage = 2

Dim files, tabs, here
Set files = CreateObject("Scripting.FileSystemObject")
here = files.GetParentFolderName(WScript.ScriptFullName)
Set tabs = CreateObject("VantikFrameTabProject.VantikFrameTab")
UseSkin "light"
AddPages
Choose LastTab()
Work
Remember tabs.GetTabCaption(tabs.ActiveTab)
ShowMenu

Sub AddPages()
    Dim tab
    tabs.TabCount = PageCount
    Name 0, "Person", "User"
    Name 1, "Notes", "Edit"
    Name LockedPage, "Locked", "Lock"
    For tab = LockedPage + 1 To PageCount - 1
        Name tab, "Sheet " & (tab + 1), "Table"
    Next
    tabs.ActiveTab = 0
    tabs.SetBarEnable LockedPage, False ' not the active one, or none would be active
End Sub

Sub Name(tab, caption, icon)
    tabs.SetBarCaption tab, caption
    tabs.SetBarIco tab, icon
End Sub

' What the command line wants.
Sub Work()
    Dim words
    Set words = WScript.Arguments
    If words.Count < 2 Then Exit Sub
    If words(0) = "go" Then Choose words(1)
    If words(0) = "close" Then CloseTab words(1), words.Count > 2
End Sub

Function Find(caption)
    Dim tab
    For tab = 0 To tabs.TabCount - 1
        If tabs.GetTabCaption(tab) = caption Then
            Find = tab
            Exit Function
        End If
    Next
    Find = -1
End Function

' The control ignores a disabled tab; its user is told.
Sub Choose(caption)
    Dim tab
    tab = Find(caption)
    If tab < 0 Then
        WScript.Echo "There is no page " & caption
    ElseIf Not tabs.GetTabEnable(tab) Then
        WScript.Echo "That page is locked"
    Else
        tabs.ActiveTab = tab
    End If
End Sub

' The control would go to the first tab, whichever is closed.
Sub CloseTab(caption, confirmed)
    Dim tab, active
    tab = Find(caption)
    active = tabs.ActiveTab
    If tab < 0 Then
        WScript.Echo "There is no page " & caption
    ElseIf Not tabs.GetTabEnable(tab) Then
        WScript.Echo "That page stays"
    ElseIf Not confirmed Then
        WScript.Echo "Close " & caption & "? Then say: close """ & caption & """ yes"
    Else
        tabs.RemoveTab tab
        If active > tab Then active = active - 1
        tabs.ActiveTab = active
    End If
End Sub

Sub ShowMenu()
    Dim tab, mark
    WScript.Echo tabs.TabCount & " pages, bars of " & tabs.BarWidth & " pixels"
    For tab = 0 To tabs.TabCount - 1
        mark = "  "
        If tab = tabs.ActiveTab Then mark = "> "
        If Not tabs.GetTabEnable(tab) Then mark = "x "
        WScript.Echo mark & tabs.GetTabCaption(tab) & " (" & tabs.GetTabIco(tab) & ")"
    Next
End Sub

Function LastTab()
    LastTab = "Person"
    If files.FileExists(here & "\last-tab.txt") Then LastTab = files.OpenTextFile(here & "\last-tab.txt").ReadLine
End Function

Sub Remember(caption)
    files.CreateTextFile(here & "\last-tab.txt", True).WriteLine caption
End Sub

' Skins\NAME beside the script, on the drive of the program that runs it: the control looks from that program's folder.
Sub UseSkin(skin)
    Dim line, words, settings
    If Not files.FileExists(here & "\Skins\" & skin & "\SKIN.INI") Then Exit Sub
    tabs.SkinPath = WayToRoot(WScript.Path) & Mid(here, 4) & "\Skins\" & skin
    tabs.SkinFile = "SKIN.INI"
    Set settings = files.OpenTextFile(here & "\Skins\" & skin & "\SETTINGS.TXT")
    Do Until settings.AtEndOfStream
        line = settings.ReadLine
        words = Split(line, " = ")
        If UBound(words) = 1 Then Setting words(0), words(1)
    Loop
End Sub

' From a folder of the drive to its root: one step for each folder.
Function WayToRoot(folder)
    Dim part
    For Each part In Split(Mid(folder, 4), "\")
        If part <> "" Then WayToRoot = WayToRoot & "..\"
    Next
End Function

Sub Setting(property, text)
    Select Case property
        Case "BarWidth": tabs.BarWidth = text
        Case "TabToTab": tabs.TabToTab = text
        Case "TabBorder": tabs.TabBorder = (text = "True")
        Case "CaptionPos": tabs.CaptionPos = Position(text)
        Case "CaptionXjust": tabs.CaptionXjust = text
        Case "CaptionYjust": tabs.CaptionYjust = text
        Case "CaptionColor0": tabs.CaptionColor0 = Colour(text)
        Case "CaptionColor1": tabs.CaptionColor1 = Colour(text)
        Case "IcoXjust": tabs.IcoXjust = text
        Case "IcoYjust": tabs.IcoYjust = text
    End Select
End Sub

' AlignLeft, AlignMiddle, AlignRight
Function Position(text)
    Position = 0
    If text = "AlignMiddle" Then Position = 1
    If text = "AlignRight" Then Position = 2
End Function

' #RRGGBB
Function Colour(text)
    Colour = RGB(CLng("&H" & Mid(text, 2, 2)), CLng("&H" & Mid(text, 4, 2)), CLng("&H" & Mid(text, 6, 2)))
End Function
