// A form with the control over all of it, as the listing in Pascal makes it: in a window of class AtlAxWin.
program atl_form;

{$mode objfpc}{$H+}
{$apptype gui}

uses
  Windows, ActiveX, ComObj, TabHost;

{$include listing.inc}

var
  Size: TRect = (Left: 0; Top: 0; Right: 600; Bottom: 220);
  Form, Host: HWND;
  Message: TMsg;

begin
  OleInitialize(nil);
  AdjustWindowRect(Size, WS_OVERLAPPEDWINDOW, False);
  Form := CreateWindowExW(0, 'STATIC', 'Listing', WS_OVERLAPPEDWINDOW, 0, 0, Size.Right - Size.Left,
    Size.Bottom - Size.Top, 0, 0, 0, nil);
  Host := MakeHost(Form);
  MoveWindow(Host, 0, 0, 600, 220, False);
  MakeTabs(ControlIn(Host) as IDispatch);
  ShowWindow(Form, SW_SHOW);
  while GetMessageW(@Message, 0, 0, 0) do DispatchMessageW(@Message);
end.
