' A script client that drives every member of the registered control, unsited. Last line: "N passed, N failed".
Option Explicit

Dim passed, failed, tabs
passed = 0
failed = 0

Sub Check(what, actual, expected)
    If actual = expected Then
        passed = passed + 1
    Else
        failed = failed + 1
        WScript.Echo "FAILED: " & what & ": " & actual & " instead of " & expected
    End If
End Sub

' The number of the error that the last statement raised; 0 for none.
Function TakeError()
    TakeError = Err.Number
    Err.Clear
End Function

Set tabs = CreateObject("VantikFrameTabProject.VantikFrameTab")

' Tabs
Check "TabCount of a new control", tabs.TabCount, 0
Check "ActiveTab of a new control", tabs.ActiveTab, -1
tabs.TabCount = 3
Check "TabCount", tabs.TabCount, 3
Check "GetTabCaption", tabs.GetTabCaption(2), "Tab2"
Check "GetTabCaption out of range", tabs.GetTabCaption(3), "-1"
tabs.ActiveTab = 1
Check "ActiveTab", tabs.ActiveTab, 1
tabs.ActiveTab = 7
Check "ActiveTab out of range", tabs.ActiveTab, 1

Dim caption, index, key, enabled
caption = ""
tabs.InsertTab 0, caption
Check "InsertTab writes the caption back", caption, "Tab3"
Check "InsertTab makes the new tab active", tabs.ActiveTab, 1
tabs.InsertTab 3
Check "InsertTab without a caption", tabs.GetTabCaption(4), "Tab4"
tabs.InsertTab 0, "Files"
Check "InsertTab with a caption", tabs.GetTabCaption(1), "Files"
Check "GetTabIco of an inserted tab", tabs.GetTabIco(1), "-1"
tabs.RemoveTab 1
Check "RemoveTab", tabs.TabCount, 5
Check "RemoveTab selects tab 0", tabs.ActiveTab, 0

index = 2
key = "Sun"
tabs.SetBarIco index, key
Check "SetBarIco", tabs.GetTabIco(2), "SUN"
Check "GetTabIco takes a variable", tabs.GetTabIco(index), "SUN"
tabs.SetBarCaption 2, "Pictures"
Check "SetBarCaption without refresh", tabs.GetTabCaption(2), "Pictures"
tabs.SetBarCaption index, "Images", True
Check "SetBarCaption with refresh", tabs.GetTabCaption(index), "Images"
tabs.SetBarCaption index
Check "SetBarCaption without a caption", tabs.GetTabCaption(index), ""
enabled = False
tabs.SetBarEnable index, enabled
Check "SetBarEnable and GetTabEnable", tabs.GetTabEnable(index), False
Check "GetTabEnable out of range", tabs.GetTabEnable(9), False
tabs.ActiveTab = 2
Check "a disabled tab is not selected", tabs.ActiveTab, 0

' Properties
Check "default of BarWidth", tabs.BarWidth, 20
Check "default of TabPos", tabs.TabPos, 2
Check "default of TabOffSet", tabs.TabOffSet, 10000
Check "default of DelButton", tabs.DelButton, True
Check "default of TabBorder", tabs.TabBorder, False
Check "default of FixOcxList", tabs.FixOcxList, ""
Check "default of SkinFile", tabs.SkinFile, "skin.ini"
Check "default of SkinPath", tabs.SkinPath, "Skin\"
tabs.TabBarPos = 1
Check "TabBarPos", tabs.TabBarPos, 1
tabs.TabPos = 2
Check "TabPos", tabs.TabPos, 2
tabs.BarWidth = 3
Check "BarWidth", tabs.BarWidth, 3
tabs.TabBarPosXJust = 4
Check "TabBarPosXJust", tabs.TabBarPosXJust, 4
tabs.TabBarPosYJust = 5
Check "TabBarPosYJust", tabs.TabBarPosYJust, 5
tabs.TabOffSet = 6
Check "TabOffSet", tabs.TabOffSet, 6
tabs.CaptionPos = 7
Check "CaptionPos", tabs.CaptionPos, 7
tabs.CaptionColor0 = 8
Check "CaptionColor0", tabs.CaptionColor0, 8
tabs.CaptionColor1 = 9
Check "CaptionColor1", tabs.CaptionColor1, 9
tabs.CaptionXjust = 10
Check "CaptionXjust", tabs.CaptionXjust, 10
tabs.CaptionYjust = 11
Check "CaptionYjust", tabs.CaptionYjust, 11
tabs.IcoXjust = 12
Check "IcoXjust", tabs.IcoXjust, 12
tabs.IcoYjust = 13
Check "IcoYjust", tabs.IcoYjust, 13
tabs.DelBtnXJust = 14
Check "DelBtnXJust", tabs.DelBtnXJust, 14
tabs.DelBtnYJust = 15
Check "DelBtnYJust", tabs.DelBtnYJust, 15
tabs.NavBtnYjust = 16
Check "NavBtnYjust", tabs.NavBtnYjust, 16
tabs.NavBtnXjust = 17
Check "NavBtnXjust", tabs.NavBtnXjust, 17
tabs.TabToTab = 18
Check "TabToTab", tabs.TabToTab, 18
tabs.FrameDist = 19
Check "FrameDist", tabs.FrameDist, 19
tabs.CaptionColor0 = &H80000012
Check "a system colour", tabs.CaptionColor0, &H80000012
tabs.DefaultCaption = "Page"
Check "DefaultCaption", tabs.DefaultCaption, "Page"
tabs.DelButton = False
Check "DelButton", tabs.DelButton, False
tabs.TabBorder = True
Check "TabBorder", tabs.TabBorder, True
tabs.FixOcxList = "a,b"
Check "FixOcxList", tabs.FixOcxList, "a,b"
tabs.SkinPath = "."
Check "SkinPath", tabs.SkinPath, "."
Check "Font is an object", IsObject(tabs.Font), True
tabs.Font.Size = 14
Check "Font.Size", CInt(tabs.Font.Size), 14
Set tabs.Font = tabs.Font
Check "Picture is an object", IsObject(tabs.Picture), True
Set tabs.Picture = tabs.Picture
Check "Picture.Type", tabs.Picture.Type, 0

' The hook's callback: the wheel away from the user selects the next tab.
Dim handled, result, window, message, wide, narrow
handled = False
result = 0
window = 0
message = 522
wide = 7864320
narrow = 0
tabs.ActiveTab = 0
tabs.BarWidth = 1
On Error Resume Next
tabs.zSubclass_Proc True, handled, result, window, message, wide, narrow
Check "zSubclass_Proc", TakeError(), 0
Check "the wheel is never marked handled", handled, False

' Errors
tabs.BarWidth = 0
Check "a BarWidth of 0 divides by zero", TakeError(), 11
tabs.BarWidth = 60
Check "a BarWidth that works again", TakeError(), 0
tabs.RemoveTab
Check "too few arguments", TakeError() <> 0, True
tabs.RemoveTab 1, 2
Check "too many arguments", TakeError() <> 0, True
tabs.TabCount = "three"
Check "text that is no number", TakeError(), 13
tabs.TabCount = 100000
Check "a number that does not fit", TakeError(), 6
tabs.NoSuchMember
Check "a member that is not there", TakeError(), 438
tabs.About 1
Check "About, which takes no argument and would wait for a press", TakeError(), 450
On Error Goto 0

WScript.Echo passed & " passed, " & failed & " failed"
If failed > 0 Then WScript.Quit 1
