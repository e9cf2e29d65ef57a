Attribute VB_Name = "TabRow"
Option Explicit

' The row of bars as screen readers find it: the control scrolls for nobody, but its buttons can be pressed for it.

Private Declare Function FindWindowEx Lib "user32" Alias "FindWindowExA" (ByVal Parent As Long, ByVal After As Long, _
    ByVal ClassName As String, ByVal Title As String) As Long
Private Declare Function AccessibleObjectFromWindow Lib "oleacc" (ByVal Window As Long, ByVal Id As Long, _
    Face As Long, Row As Object) As Long

Private Const OfControl = -4, Unavailable = 1, OffScreen = &H10000

' Its children are the tabs, then the buttons back, forth and menu, all counted from 1.
Public Sub BringIntoView(ByVal Form As Long, ByVal Page As Long, ByVal PageCount As Long)
    Dim Row As Object, First As Long, Button As Long
    Set Row = RowOf(FindWindowEx(Form, 0, "VantikFrameTab", vbNullString))
    If Row Is Nothing Then Exit Sub
    Do While Has(Row, First + 1, OffScreen)
        First = First + 1
    Loop
    Button = PageCount + 1
    If Page > First Then Button = Button + 1
    Do While Has(Row, Page + 1, OffScreen) And Not Has(Row, Button, Unavailable)
        Row.accDoDefaultAction Button
    Loop
End Sub

Private Function RowOf(ByVal Window As Long) As Object
    Dim Dispatch(3) As Long ' {00020400-0000-0000-C000-000000000046}
    Dispatch(0) = &H20400
    Dispatch(2) = &HC0
    Dispatch(3) = &H46000000
    AccessibleObjectFromWindow Window, OfControl, Dispatch(0), RowOf
End Function

Private Function Has(ByVal Row As Object, ByVal Child As Long, ByVal State As Long) As Boolean
    Has = (Row.accState(Child) And State) <> 0
End Function
