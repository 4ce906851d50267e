{ Makes a Pascal unit of the component's type library, as a developer would:

      importer CONMUTA.DLL FOLDER }
program importer;
{$apptype console}
{$mode delphi}
uses ActiveX, Classes, SysUtils, TypeLib;

var
  source, package, registration, name: string;
  references: TStringList;
  lines: TStringList;
begin
  CoInitialize(nil);
  references := TStringList.Create;
  lines := TStringList.Create;
  source := ImportTypelib(ParamStr(1), name, references, False, False, False, package, registration);
  { The standard types are in units of the compiler's own. }
  lines.Text := StringReplace(source, ',stdole2', '', [rfReplaceAll, rfIgnoreCase]);
  lines.SaveToFile(ParamStr(2) + '\' + name + '.pas');
  WriteLn(name);
end.
