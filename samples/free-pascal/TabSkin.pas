// A skin that lies beside the program, with the property values that go with it.
unit TabSkin;

{$mode objfpc}{$H+}

interface

// The folder Skins\NAME: its SKIN.INI, and the lines "Property = Value" of its SETTINGS.TXT.
procedure UseSkin(const Tabs: OleVariant; const Skin: string);

implementation

uses
  SysUtils, ComObj, Variants;

// #RRGGBB, True, the name of a constant, or a number.
function ToNumber(const Text: string): LongInt;
var
  Rgb: LongInt;
begin
  if Text = 'True' then exit(-1);
  if (Text = 'False') or (Text = 'AlignLeft') then exit(0);
  if Text = 'AlignMiddle' then exit(1);
  if Text = 'AlignRight' then exit(2);
  if Text[1] <> '#' then exit(StrToInt(Text));
  Rgb := StrToInt('$' + Copy(Text, 2, 6));
  Result := (Rgb and $FF) shl 16 or Rgb and $FF00 or Rgb shr 16;
end;

procedure Put(const Tabs: OleVariant; const Name: string; Value: LongInt);
begin
  case Name of
    'BarWidth': Tabs.BarWidth := Value;
    'TabToTab': Tabs.TabToTab := Value;
    'TabBorder': Tabs.TabBorder := Value <> 0;
    'CaptionPos': Tabs.CaptionPos := Value;
    'CaptionXjust': Tabs.CaptionXjust := Value;
    'CaptionYjust': Tabs.CaptionYjust := Value;
    'CaptionColor0': Tabs.CaptionColor0 := Value;
    'CaptionColor1': Tabs.CaptionColor1 := Value;
    'IcoXjust': Tabs.IcoXjust := Value;
    'IcoYjust': Tabs.IcoYjust := Value;
  end;
end;

procedure UseSkin(const Tabs: OleVariant; const Skin: string);
var
  Settings: TextFile;
  Line: string;
  Gap: SizeInt;
begin
  Tabs.SkinPath := WideString('Skins\' + Skin);
  Tabs.SkinFile := WideString('SKIN.INI');
  AssignFile(Settings, ExtractFilePath(ParamStr(0)) + 'Skins\' + Skin + '\SETTINGS.TXT');
  Reset(Settings);
  while not Eof(Settings) do
  begin
    ReadLn(Settings, Line);
    Gap := Pos(' = ', Line);
    if Gap > 0 then Put(Tabs, Copy(Line, 1, Gap - 1), ToNumber(Copy(Line, Gap + 3, MaxInt)));
  end;
  CloseFile(Settings);
end;

end.
