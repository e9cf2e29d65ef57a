Attribute VB_Name = "TabFormCode"
' The code of a user form with the control VantikFrameTab1, the label StatusLabel, and the frames PersonFrame, NotesFrame
' and SheetFrame, without borders, over the page. Such forms give the control no children: the frames are its pages.
Option Explicit

Private Const PageCount = 40, LockedPage = 2
Private Const OfControl = -4, Unavailable = 1, OffScreen = &H10000
Private WithEvents Menu As MSForms.ListBox

Private Declare PtrSafe Function FindWindowEx Lib "user32" Alias "FindWindowExA" (ByVal Parent As LongPtr, _
    ByVal After As LongPtr, ByVal ClassName As String, ByVal Title As String) As LongPtr
Private Declare PtrSafe Function AccessibleObjectFromWindow Lib "oleacc" (ByVal Window As LongPtr, ByVal Id As Long, _
    Face As Long, Row As Object) As Long

Private Sub UserForm_Initialize()
    Dim Page As Integer
    Set Menu = Me.Controls.Add("Forms.ListBox.1", "Menu", False)
    UseSkin "light"
    VantikFrameTab1.TabCount = PageCount
    NamePage 0, "Person", "User"
    NamePage 1, "Notes", "Edit"
    NamePage LockedPage, "Locked", "Lock"
    For Page = LockedPage + 1 To PageCount - 1
        NamePage Page, "Sheet " & (Page + 1), "Table"
    Next
    VantikFrameTab1.ActiveTab = 0
    VantikFrameTab1.SetBarEnable LockedPage, False ' not the active one, or none would be active
    SelectPage Find(GetSetting("VantikFrameTab samples", "Office form", "LastTab", "Person"))
End Sub

Private Sub NamePage(ByVal Page As Integer, ByVal Caption As String, ByVal Icon As String)
    VantikFrameTab1.SetBarCaption Page, Caption, True
    VantikFrameTab1.SetBarIco Page, Icon
End Sub

Private Function Find(ByVal Caption As String) As Integer
    For Find = 0 To VantikFrameTab1.TabCount - 1
        If VantikFrameTab1.GetTabCaption(Find) = Caption Then Exit Function
    Next
    Find = 0
End Function

' No event comes for what the form does itself.
Private Sub SelectPage(ByVal Page As Integer)
    VantikFrameTab1.ActiveTab = Page
    ShowPage VantikFrameTab1.ActiveTab
    If Me.Visible Then BringIntoView VantikFrameTab1.ActiveTab
End Sub

' What does not show takes no presses, so the row of a form that was just made does not scroll.
Private Sub UserForm_Activate()
    BringIntoView VantikFrameTab1.ActiveTab
End Sub

Private Sub ShowPage(ByVal Page As Integer)
    Dim Caption As String
    Caption = VantikFrameTab1.GetTabCaption(Page)
    PersonFrame.Visible = (Caption = "Person")
    NotesFrame.Visible = (Caption = "Notes")
    SheetFrame.Visible = (Caption Like "Sheet *")
    StatusLabel.Caption = Caption & " is open"
End Sub

Private Sub VantikFrameTab1_TabDown(Index As Integer, Button As Integer)
    If VantikFrameTab1.GetTabEnable(Index) Then
        ShowPage Index
    Else
        StatusLabel.Caption = "That page is locked"
        Index = VantikFrameTab1.ActiveTab
    End If
End Sub

' The control would go to the first tab, whichever is closed. So it keeps the tab, and the form takes it out.
Private Sub VantikFrameTab1_TabClose(Index As Integer)
    Dim Closed As Integer, Active As Integer
    Closed = Index
    Index = -1
    If Not VantikFrameTab1.GetTabEnable(Closed) Or VantikFrameTab1.TabCount = 1 Then
        StatusLabel.Caption = "That page stays"
    ElseIf MsgBox("Close """ & VantikFrameTab1.GetTabCaption(Closed) & """?", vbYesNo + vbQuestion) = vbYes Then
        Active = VantikFrameTab1.ActiveTab
        VantikFrameTab1.RemoveTab Closed
        If Active > Closed Or Active = VantikFrameTab1.TabCount Then Active = Active - 1
        SelectPage Active
    End If
End Sub

' User forms have no menus: a list over the page takes its place.
Private Sub VantikFrameTab1_DownBarDown()
    Dim Page As Integer
    Menu.Clear
    For Page = 0 To VantikFrameTab1.TabCount - 1
        Menu.AddItem VantikFrameTab1.GetTabCaption(Page)
    Next
    Menu.Move VantikFrameTab1.Left + VantikFrameTab1.Width - 120, VantikFrameTab1.Top + 30, 110, 180
    Menu.ZOrder
    Menu.Visible = True
End Sub

Private Sub Menu_MouseUp(ByVal Button As Integer, ByVal Shift As Integer, ByVal X As Single, ByVal Y As Single)
    Menu.Visible = False
    If Menu.ListIndex >= 0 Then SelectPage Menu.ListIndex
End Sub

' The row of bars as screen readers find it: the control scrolls for nobody, but its buttons can be pressed for it. Its
' children are the tabs, then the buttons back, forth and menu, all counted from 1.
Private Sub BringIntoView(ByVal Page As Long)
    Dim Row As Object, First As Long, Button As Long
    Set Row = RowOf(FindControl(FindWindowEx(0, 0, "ThunderDFrame", Me.Caption)))
    If Row Is Nothing Then Exit Sub
    Do While Has(Row, First + 1, OffScreen)
        First = First + 1
    Loop
    Button = VantikFrameTab1.TabCount + 1
    If Page > First Then Button = Button + 1
    Do While Has(Row, Page + 1, OffScreen) And Not Has(Row, Button, Unavailable)
        Row.accDoDefaultAction Button
    Loop
End Sub

' The control's window, wherever it stands below the given one.
Private Function FindControl(ByVal Window As LongPtr) As LongPtr
    Dim Child As LongPtr
    If Window = 0 Then Exit Function ' or the search would go through all of the screen
    FindControl = FindWindowEx(Window, 0, "VantikFrameTab", vbNullString)
    Do While FindControl = 0
        Child = FindWindowEx(Window, Child, vbNullString, vbNullString)
        If Child = 0 Then Exit Function
        FindControl = FindControl(Child)
    Loop
End Function

Private Function RowOf(ByVal Window As LongPtr) As Object
    Dim Dispatch(3) As Long ' {00020400-0000-0000-C000-000000000046}
    Dispatch(0) = &H20400
    Dispatch(2) = &HC0
    Dispatch(3) = &H46000000
    AccessibleObjectFromWindow Window, OfControl, Dispatch(0), RowOf
End Function

Private Function Has(ByVal Row As Object, ByVal Child As Long, ByVal State As Long) As Boolean
    Has = (Row.accState(Child) And State) <> 0
End Function

Private Sub UserForm_QueryClose(Cancel As Integer, CloseMode As Integer)
    SaveSetting "VantikFrameTab samples", "Office form", "LastTab", VantikFrameTab1.GetTabCaption(VantikFrameTab1.ActiveTab)
End Sub

' Skins\NAME below the folder of the office program: the control looks from there, not from the document's.
Private Sub UseSkin(ByVal Skin As String)
    Dim Text As String, Words() As String, File As Integer
    If Dir$(Application.Path & "\Skins\" & Skin & "\SKIN.INI") = "" Then Exit Sub
    VantikFrameTab1.SkinPath = "Skins\" & Skin
    VantikFrameTab1.SkinFile = "SKIN.INI"
    File = FreeFile
    Open Application.Path & "\Skins\" & Skin & "\SETTINGS.TXT" For Input As #File
    Do Until EOF(File)
        Line Input #File, Text
        Words = Split(Text, " = ")
        If UBound(Words) = 1 Then CallByName VantikFrameTab1, Words(0), VbLet, ToValue(Words(1))
    Loop
    Close #File
End Sub

' #RRGGBB, True, the name of a constant, or a number.
Private Function ToValue(ByVal Text As String) As Variant
    Select Case Text
        Case "True": ToValue = True
        Case "False": ToValue = False
        Case "AlignLeft": ToValue = AlignLeft
        Case "AlignMiddle": ToValue = AlignMiddle
        Case "AlignRight": ToValue = AlignRight
        Case Else
            If Left$(Text, 1) = "#" Then ToValue = ToColour(Text) Else ToValue = CInt(Text)
    End Select
End Function

Private Function ToColour(ByVal Text As String) As Long
    ToColour = RGB(CInt("&H" & Mid$(Text, 2, 2)), CInt("&H" & Mid$(Text, 4, 2)), CInt("&H" & Mid$(Text, 6, 2)))
End Function
