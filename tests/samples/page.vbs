' As much of a page as the script of the HTML application asks for, and what its user does there.
Option Explicit

Class Style
    Public display
End Class

Class Items
    Public length
End Class

Class Element
    Public innerText
    Public text
    Public selectedIndex
    Public style
    Public options
    Private Sub Class_Initialize
        Set style = New Style
        Set options = New Items
    End Sub
    Public Sub add(item)
        options.length = options.length + 1
    End Sub
End Class

Class Location
    Public pathname
End Class

Class Page
    Public location
    Private elements
    Private Sub Class_Initialize
        Set elements = CreateObject("Scripting.Dictionary")
        Set location = New Location
        location.pathname = WScript.ScriptFullName
    End Sub
    Public Function getElementById(id)
        If Not elements.Exists(id) Then elements.Add id, New Element
        Set getElementById = elements.Item(id)
    End Function
    Public Function createElement(kind)
        Set createElement = New Element
    End Function
End Class

Class Asker
    Public answer
    Public Function confirm(question)
        WScript.Echo question
        confirm = answer
    End Function
End Class

' Wine has none of its own.
Function Unescape(text)
    Unescape = text
End Function

Dim tabs, document, window
Set tabs = CreateObject("VantikFrameTabProject.VantikFrameTab")
Set document = New Page
Set window = New Asker

Sub Say(what)
    Dim id, pages
    For Each id In Array("Person", "Notes", "Sheet", "menu")
        If document.getElementById(id).style.display = "block" Then pages = pages & " " & id
    Next
    WScript.Echo what & ": tab " & tabs.ActiveTab & " of " & tabs.TabCount & "," & pages & ", " & document.getElementById("status").innerText
End Sub

Sub Press(tab)
    tabs.ActiveTab = tab
    AfterSwitch
End Sub

' On a press a disabled tab becomes the active one; from a script it can only be disabled afterwards.
Sub PressLocked()
    tabs.SetBarEnable LockedPage, True
    tabs.ActiveTab = LockedPage
    tabs.SetBarEnable LockedPage, False
    AfterSwitch
End Sub

Sub CloseSaying(answer)
    window.answer = answer
    ClosePage
End Sub

Sub Choose(tab)
    ShowMenu
    Say document.getElementById("menu").options.length & " in the menu"
    document.getElementById("menu").selectedIndex = tab
    ChooseFromMenu
End Sub

Sub UsePage()
    OpenPages
    Say "opened"
    Press 29
    Say "pressed"
    PressLocked
    Say "locked"
    CloseSaying False
    Say "kept"
    CloseSaying True
    Say "closed"
    Choose 1
    Say "chosen"
    Remember
End Sub
