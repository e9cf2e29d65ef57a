// The control in a window of class AtlAxWin, by the system's atl.dll.
unit TabHost;

{$mode objfpc}{$H+}

interface

uses
  Windows, ActiveX;

// Makes the window; its text names the control.
function MakeHost(Form: HWND): HWND;
function ControlIn(Host: HWND): IUnknown;

implementation

uses
  ComObj;

function AtlAxWinInit: LongBool; stdcall; external 'atl.dll';
function AtlAxGetControl(Host: HWND; out Control: IUnknown): HResult; stdcall; external 'atl.dll';

var
  AtlProcedure: WNDPROC;

// What windows on the pages tell and ask comes to the window around the control, which keeps it.
function PassOn(Window: HWND; Number: UINT; W: WPARAM; L: LPARAM): LRESULT; stdcall;
begin
  if (Number = WM_COMMAND) or (Number = WM_NOTIFY) or ((Number >= WM_CTLCOLORMSGBOX) and (Number <= WM_CTLCOLORSTATIC)) then
    Result := SendMessageW(GetParent(Window), Number, W, L)
  else
    Result := CallWindowProcW(AtlProcedure, Window, Number, W, L);
end;

function MakeHost(Form: HWND): HWND;
begin
  AtlAxWinInit;
  Result := CreateWindowExW(WS_EX_CONTROLPARENT, 'AtlAxWin', 'VantikFrameTabProject.VantikFrameTab',
    WS_CHILD or WS_VISIBLE or WS_CLIPCHILDREN, 0, 0, 100, 100, Form, 0, 0, nil);
  AtlProcedure := WNDPROC(SetWindowLongPtrW(Result, GWL_WNDPROC, LONG_PTR(@PassOn)));
end;

function ControlIn(Host: HWND): IUnknown;
begin
  OleCheck(AtlAxGetControl(Host, Result));
end;

end.
