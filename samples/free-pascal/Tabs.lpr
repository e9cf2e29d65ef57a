// A form of forty pages around the control, without a framework and late bound.
program Tabs;

{$mode objfpc}{$H+}
{$apptype gui}

uses
  Windows, ActiveX, ComObj, SysUtils, Variants, Registry, TabEvents, TabHost, TabRow, TabSkin;

const
  PageCount = 40;
  LockedPage = 2;
  StatusId = 100;
  DC_BRUSH = 18;
  PageColour = $FDFBFB; // what the skin paints there
  Key = 'Software\VantikFrameTab samples\Free Pascal';

type
  TForm = class
    Window, Host, Page, Status: HWND;
    Tabs: OleVariant;
    Keys: IOleInPlaceActiveObject;
    Events: TTabEvents;
    Sink: IDispatch; // keeps Events
    constructor Create;
    procedure Open;
    function Add(Kind, Text: PWideChar; Style: DWORD; X, Y, Width, Height: LongInt): HWND;
    procedure BeginPage(Tab: LongInt; const Caption, Icon: WideString);
    procedure AddPages;
    procedure Arrange;
    procedure Tell(const Text: WideString);
    function Find(const Caption: WideString): LongInt;
    procedure Show(Tab: LongInt);
    procedure Select(Tab: LongInt);
    procedure OnTabDown(var Index: SmallInt);
    procedure OnTabClose(var Index: SmallInt);
    procedure OnMenu;
    procedure OnClose;
    procedure Run;
  end;

var
  Form: TForm;

function Handle(Window: HWND; Number: UINT; W: WPARAM; L: LPARAM): LRESULT; stdcall;
begin
  if (Form <> nil) and (Form.Status <> 0) then
    case Number of
      WM_SIZE: Form.Arrange;
      WM_SETFOCUS: SetFocus(Form.Page);
      WM_SYSCOLORCHANGE, WM_SETTINGCHANGE: SendMessageW(Form.Page, Number, W, L); // these reach top-level windows only
      WM_CTLCOLORSTATIC:
      begin
        SetBkColor(W, PageColour);
        SetDCBrushColor(W, PageColour);
        exit(GetStockObject(DC_BRUSH));
      end;
      WM_CLOSE: Form.OnClose;
    end;
  if Number = WM_DESTROY then PostQuitMessage(0);
  Result := DefWindowProcW(Window, Number, W, L);
end;

constructor TForm.Create;
var
  Description: WNDCLASSW;
begin
  Form := Self; // the window asks for it before this is done
  FillChar(Description, SizeOf(Description), 0);
  Description.lpfnWndProc := WNDPROC(@Handle);
  Description.lpszClassName := 'FreePascalSample';
  Description.hbrBackground := GetSysColorBrush(COLOR_BTNFACE);
  Description.hCursor := LoadCursorW(0, PWideChar(IDC_ARROW));
  RegisterClassW(@Description);
  Window := CreateWindowExW(WS_EX_CONTROLPARENT, 'FreePascalSample', 'Free Pascal', WS_OVERLAPPEDWINDOW,
    LongInt(CW_USEDEFAULT), 0, 716, 379, 0, 0, 0, nil);
  Host := MakeHost(Window);
  Tabs := ControlIn(Host) as IDispatch;
  Keys := ControlIn(Host) as IOleInPlaceActiveObject;
  OleCheck(Keys.GetWindow(Page));
  Events := TTabEvents.Create;
  Sink := Events;
  Events.TabDown := @OnTabDown;
  Events.TabClose := @OnTabClose;
  Events.MenuDown := @OnMenu;
  Open;
end;

procedure TForm.Open;
begin
  UseSkin(Tabs, 'light'); // before there are tabs to show in another one
  Tabs.TabOffSet := 40000; // twips; wider than the control will ever be
  Tabs.FrameDist := 6; // pixels
  Tabs.TabCount := PageCount;
  AddPages;
  Status := Add('STATIC', 'Ready', SS_NOPREFIX, 0, 0, 0, 0);
  SetWindowLongPtrW(Status, GWL_ID, StatusId);
  Tabs.FixOcxList := WideString(IntToStr(StatusId));
  Events.Connect(ControlIn(Host));
  ShowWindow(Window, SW_SHOW);
  Arrange;
  with TRegistry.Create do
  try
    if OpenKey(Key, True) and ValueExists('LastTab') then Show(Find(WideString(ReadString('LastTab'))));
  finally
    Free;
  end;
end;

// A window belongs to the tab that is active when it is made.
function TForm.Add(Kind, Text: PWideChar; Style: DWORD; X, Y, Width, Height: LongInt): HWND;
begin
  Result := CreateWindowExW(0, Kind, Text, WS_CHILD or WS_VISIBLE or Style, X, Y, Width, Height, Page, 0, 0, nil);
  SendMessageW(Result, WM_SETFONT, GetStockObject(DEFAULT_GUI_FONT), 0);
end;

procedure TForm.BeginPage(Tab: LongInt; const Caption, Icon: WideString);
begin
  Tabs.ActiveTab := Tab;
  Tabs.SetBarCaption(Tab, Caption, True);
  Tabs.SetBarIco(Tab, Icon);
end;

procedure TForm.AddPages;
var
  Tab: LongInt;
  Caption: WideString;
begin
  BeginPage(0, 'Person', 'User');
  Add('STATIC', '&Name:', 0, 20, 60, 60, 20);
  Add('EDIT', '', WS_BORDER or WS_TABSTOP, 90, 58, 210, 22);
  Add('STATIC', '&Mail:', 0, 20, 90, 60, 20);
  Add('EDIT', '', WS_BORDER or WS_TABSTOP, 90, 88, 210, 22);
  BeginPage(1, 'Notes', 'Edit');
  Add('STATIC', 'N&otes:', 0, 20, 60, 60, 20);
  Add('EDIT', '', WS_BORDER or WS_TABSTOP or ES_MULTILINE or ES_WANTRETURN, 90, 58, 410, 182);
  BeginPage(LockedPage, 'Locked', 'Lock');
  for Tab := LockedPage + 1 to PageCount - 1 do
  begin
    Caption := WideString('Sheet ' + IntToStr(Tab + 1));
    BeginPage(Tab, Caption, 'Table');
    Add('STATIC', PWideChar('This is ' + Caption + '.'), SS_NOPREFIX, 20, 60, 280, 20);
  end;
  Tabs.ActiveTab := 0;
  Tabs.SetBarEnable(LockedPage, False); // not the active one, or none would be active
end;

// The control over the whole form, the fixed window at the bottom of the page.
procedure TForm.Arrange;
var
  Inside: TRect;
begin
  GetClientRect(Window, Inside);
  MoveWindow(Host, 0, 0, Inside.Right, Inside.Bottom, True);
  MoveWindow(Status, 20, Inside.Bottom - 50, Inside.Right - 50, 20, True);
end;

procedure TForm.Tell(const Text: WideString);
begin
  SetWindowTextW(Status, PWideChar(Text));
end;

function TForm.Find(const Caption: WideString): LongInt;
begin
  for Result := 0 to LongInt(Tabs.TabCount) - 1 do
    if WideString(Tabs.GetTabCaption(Result)) = Caption then exit;
  Result := 0;
end;

// As the user does, but from the form: no event comes for this.
procedure TForm.Show(Tab: LongInt);
begin
  Tabs.ActiveTab := Tab;
  BringIntoView(Page, LongInt(Tabs.ActiveTab), LongInt(Tabs.TabCount));
end;

procedure TForm.Select(Tab: LongInt);
begin
  Show(Tab);
  Tell(WideString(Tabs.GetTabCaption(LongInt(Tabs.ActiveTab))) + ' is open');
end;

procedure TForm.OnTabDown(var Index: SmallInt);
begin
  if Tabs.GetTabEnable(LongInt(Index)) then
    Tell(WideString(Tabs.GetTabCaption(LongInt(Index))) + ' is open')
  else
  begin
    Tell('That page is locked');
    Index := Tabs.ActiveTab;
  end;
end;

// The control would go to the first tab, whichever is closed. So it keeps the tab, and the form takes it out.
procedure TForm.OnTabClose(var Index: SmallInt);
var
  Closed, Active: LongInt;
  Question: WideString;
begin
  Closed := Index;
  Index := -1;
  Active := Tabs.ActiveTab;
  if (not Tabs.GetTabEnable(Closed)) or (Tabs.TabCount = 1) then
  begin
    Tell('That page stays');
    exit;
  end;
  Question := 'Close "' + WideString(Tabs.GetTabCaption(Closed)) + '"?';
  if MessageBoxW(Window, PWideChar(Question), 'Free Pascal', MB_YESNO or MB_ICONQUESTION) <> IDYES then exit;
  Tabs.RemoveTab(Closed);
  Arrange; // a fixed window stands where those of the first tab do, and goes with it
  if (Active > Closed) or (Active = LongInt(Tabs.TabCount)) then Dec(Active);
  Select(Active);
end;

procedure TForm.OnMenu;
var
  Menu: HMENU;
  Tab, Chosen: LongInt;
  State: UINT;
  Corner: TPoint;
begin
  Menu := CreatePopupMenu;
  for Tab := 0 to LongInt(Tabs.TabCount) - 1 do
  begin
    State := MF_STRING;
    if Tab = LongInt(Tabs.ActiveTab) then State := State or MF_CHECKED;
    if not Tabs.GetTabEnable(Tab) then State := State or MF_GRAYED;
    if (Tab > 0) and (Tab mod 20 = 0) then State := State or MF_MENUBARBREAK;
    AppendMenuW(Menu, State, Tab + 1, PWideChar(WideString(Tabs.GetTabCaption(Tab))));
  end;
  GetCursorPos(Corner);
  Chosen := LongInt(TrackPopupMenu(Menu, TPM_RETURNCMD, Corner.X, Corner.Y, 0, Window, nil));
  DestroyMenu(Menu);
  if Chosen > 0 then Select(Chosen - 1);
end;

procedure TForm.OnClose;
begin
  with TRegistry.Create do
  try
    if OpenKey(Key, True) then WriteString('LastTab', string(Tabs.GetTabCaption(LongInt(Tabs.ActiveTab))));
  finally
    Free;
  end;
  Events.Disconnect;
  Status := 0;
  Tabs := Unassigned;
  Keys := nil;
end;

// The control sees a key first, then the dialog manager, which knows Tab, Enter, Esc and the underlined letters.
procedure TForm.Run;
var
  Message: TMsg;
begin
  while GetMessageW(@Message, 0, 0, 0) do
  begin
    if (Keys <> nil) and (Message.message >= WM_KEYFIRST) and (Message.message <= WM_KEYLAST) and
      (Keys.TranslateAccelerator(Message) = S_OK) then continue;
    if IsDialogMessageW(Window, @Message) then continue;
    TranslateMessage(@Message);
    DispatchMessageW(@Message);
  end;
end;

begin
  OleInitialize(nil);
  TForm.Create.Run;
end.
