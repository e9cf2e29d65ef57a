// Hears the control's events.
unit TabEvents;

{$mode objfpc}{$H+}

interface

uses
  Windows, ActiveX;

type
  // What is left in an index counts; -1 keeps a tab from being closed.
  TTabEvent = procedure(var Index: SmallInt) of object;
  TMenuEvent = procedure of object;

  TTabEvents = class(TInterfacedObject, IDispatch)
  private
    FPoint: IConnectionPoint;
    FCookie: DWord;
  public
    TabDown, TabClose: TTabEvent;
    MenuDown: TMenuEvent;
    procedure Connect(const Control: IUnknown);
    procedure Disconnect;
    function GetTypeInfoCount(out Count: LongInt): HResult; stdcall;
    function GetTypeInfo(Index, Locale: LongInt; out Info): HResult; stdcall;
    function GetIDsOfNames(const Id: TGUID; Names: Pointer; Count, Locale: LongInt; Ids: Pointer): HResult; stdcall;
    function Invoke(Event: LongInt; const Id: TGUID; Locale: LongInt; Flags: Word; var Params;
      Answer, Error, Wrong: Pointer): HResult; stdcall;
  end;

implementation

const
  DownBarDownEvent = 1;
  TabDownEvent = 5;
  TabCloseEvent = 6;
  EventsId: TGUID = '{DFDC6C0C-343A-459A-990A-A9A19B29F4B6}';

procedure TTabEvents.Connect(const Control: IUnknown);
begin
  (Control as IConnectionPointContainer).FindConnectionPoint(EventsId, FPoint);
  FPoint.Advise(Self as IDispatch, FCookie);
end;

procedure TTabEvents.Disconnect;
begin
  FPoint.Unadvise(FCookie);
  FPoint := nil;
end;

function TTabEvents.GetTypeInfoCount(out Count: LongInt): HResult; stdcall;
begin
  Count := 0;
  Result := S_OK;
end;

function TTabEvents.GetTypeInfo(Index, Locale: LongInt; out Info): HResult; stdcall;
begin
  Result := E_NOTIMPL;
end;

function TTabEvents.GetIDsOfNames(const Id: TGUID; Names: Pointer; Count, Locale: LongInt; Ids: Pointer): HResult;
  stdcall;
begin
  Result := DISP_E_UNKNOWNNAME;
end;

// Arguments come last first, each by reference. No exception leaves by the control.
function TTabEvents.Invoke(Event: LongInt; const Id: TGUID; Locale: LongInt; Flags: Word; var Params;
  Answer, Error, Wrong: Pointer): HResult; stdcall;
var
  Arguments: PVariantArgList;
begin
  Arguments := TDispParams(Params).rgvarg;
  Result := S_OK;
  try
    case Event of
      DownBarDownEvent: MenuDown();
      TabDownEvent: TabDown(Arguments^[1].piVal^);
      TabCloseEvent: TabClose(Arguments^[0].piVal^);
    end;
  except
    Result := E_FAIL;
  end;
end;

end.
