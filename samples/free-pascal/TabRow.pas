// The row of bars as screen readers find it: the control scrolls for nobody, but its buttons can be pressed for it.
unit TabRow;

{$mode objfpc}{$H+}

interface

uses
  Windows;

// So that the tab's bar shows. The window is the control's.
procedure BringIntoView(Control: HWND; Tab, TabCount: LongInt);

implementation

uses
  ActiveX, ComObj, Variants;

const
  OBJID_CLIENT = DWORD(-4);
  STATE_SYSTEM_UNAVAILABLE = 1;
  STATE_SYSTEM_OFFSCREEN = $10000;

function AccessibleObjectFromWindow(Window: HWND; Id: DWORD; const Face: TGUID; out Found: IDispatch): HResult; stdcall;
  external 'oleacc.dll';

// The row's children are its tabs, then the buttons back, forth and menu, all counted from 1.
procedure BringIntoView(Control: HWND; Tab, TabCount: LongInt);
var
  Found: IDispatch;
  Row: OleVariant;
  First, Button: LongInt;

  function Has(Child, State: LongInt): Boolean;
  begin
    Result := LongInt(Row.accState(Child)) and State <> 0;
  end;

begin
  OleCheck(AccessibleObjectFromWindow(Control, OBJID_CLIENT, IDispatch, Found));
  Row := Found;
  First := 0;
  while Has(First + 1, STATE_SYSTEM_OFFSCREEN) do Inc(First);
  Button := TabCount + 1;
  if Tab > First then Inc(Button);
  while Has(Tab + 1, STATE_SYSTEM_OFFSCREEN) and not Has(Button, STATE_SYSTEM_UNAVAILABLE) do
    Row.accDoDefaultAction(Button);
end;

end.
