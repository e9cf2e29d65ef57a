VERSION 5.00
Object = "{9E5F043C-D27A-428A-9C0F-FA9A67ADF68E}#1.0#0"; "VantikFrameTab.ocx"
Begin VB.Form TabForm 
   Caption         =   "Basic form"
   ClientHeight    =   5100
   ClientLeft      =   165
   ClientTop       =   735
   ClientWidth     =   10500
   ScaleHeight     =   5100
   ScaleWidth      =   10500
   StartUpPosition =   3  'Windows Default
   Begin VantikFrameTabProject.VantikFrameTab VantikFrameTab1 
      Height          =   4860
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   10260
      TabOffSet       =   12000
      FixOcxList      =   "StatusLabel"
      Begin VB.Label StatusLabel 
         BackStyle       =   0  'Transparent
         Caption         =   "Ready"
         Height          =   255
         Left            =   300
         TabIndex        =   1
         Top             =   4400
         Width           =   9000
      End
      Begin VB.Label NameLabel 
         BackStyle       =   0  'Transparent
         Caption         =   "&Name:"
         Height          =   255
         Left            =   300
         TabIndex        =   2
         Top             =   900
         Width           =   900
      End
      Begin VB.TextBox NameBox 
         Height          =   330
         Left            =   1350
         TabIndex        =   3
         Top             =   870
         Width           =   3150
      End
      Begin VB.TextBox NotesBox 
         Height          =   3000
         Left            =   12300
         MultiLine       =   -1  'True
         TabIndex        =   4
         Top             =   870
         Width           =   9000
      End
   End
   Begin VB.Menu PagesMenu 
      Caption         =   "Pages"
      Visible         =   0   'False
      Begin VB.Menu PageItem 
         Caption         =   "Page"
         Index           =   0
      End
   End
End
Attribute VB_Name = "TabForm"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' A child of tab k stands at its place plus k times TabOffSet: NotesBox is one of tab 1. Forty times TabOffSet have to
' stay below 32767 pixels, and TabOffSet above the width of the control.
Private Const PageCount = 40, LockedPage = 2

Private Sub Form_Load()
    Dim Skin As New TabSkin
    Dim Page As Integer
    Skin.UseOn VantikFrameTab1, "light"
    VantikFrameTab1.TabCount = PageCount
    NamePage 0, "Person", "User"
    NamePage 1, "Notes", "Edit"
    NamePage LockedPage, "Locked", "Lock"
    For Page = LockedPage + 1 To PageCount - 1
        NamePage Page, "Sheet " & (Page + 1), "Table"
    Next
    VantikFrameTab1.ActiveTab = 0
    VantikFrameTab1.SetBarEnable LockedPage, False ' not the active one, or none would be active
    Show ' what does not show takes no presses, so its row does not scroll
    SelectPage Find(GetSetting("VantikFrameTab samples", "Basic form", "LastTab", "Person"))
End Sub

Private Sub NamePage(ByVal Page As Integer, ByVal Caption As String, ByVal Icon As String)
    VantikFrameTab1.SetBarCaption Page, Caption, True
    VantikFrameTab1.SetBarIco Page, Icon
End Sub

Private Function Find(Caption As String) As Integer
    For Find = 0 To VantikFrameTab1.TabCount - 1
        If VantikFrameTab1.GetTabCaption(Find) = Caption Then Exit Function
    Next
    Find = 0
End Function

' No event comes for what the form does itself.
Private Sub SelectPage(ByVal Page As Integer)
    VantikFrameTab1.ActiveTab = Page
    BringIntoView hWnd, VantikFrameTab1.ActiveTab, VantikFrameTab1.TabCount
    StatusLabel.Caption = VantikFrameTab1.GetTabCaption(VantikFrameTab1.ActiveTab) & " is open"
End Sub

Private Sub VantikFrameTab1_TabDown(Index As Integer, Button As Integer)
    If VantikFrameTab1.GetTabEnable(Index) Then
        StatusLabel.Caption = VantikFrameTab1.GetTabCaption(Index) & " is open"
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
        StatusLabel.Left = 300 ' it stands where those of the first tab do, and goes with it
        SelectPage Active
    End If
End Sub

Private Sub VantikFrameTab1_DownBarDown()
    Dim Page As Integer
    For Page = 0 To VantikFrameTab1.TabCount - 1
        If Page > PageItem.UBound Then Load PageItem(Page)
        PageItem(Page).Caption = VantikFrameTab1.GetTabCaption(Page)
        PageItem(Page).Enabled = VantikFrameTab1.GetTabEnable(Page)
        PageItem(Page).Checked = (Page = VantikFrameTab1.ActiveTab)
    Next
    For Page = PageItem.UBound To VantikFrameTab1.TabCount Step -1
        Unload PageItem(Page)
    Next
    PopupMenu PagesMenu
End Sub

Private Sub PageItem_Click(Index As Integer)
    SelectPage Index
End Sub

Private Sub Form_Unload(Cancel As Integer)
    SaveSetting "VantikFrameTab samples", "Basic form", "LastTab", VantikFrameTab1.GetTabCaption(VantikFrameTab1.ActiveTab)
End Sub
