' Everything that goes wrong on purpose: each failure has a number, a source and a
' sentence, and the script goes on.
Option Explicit

Dim point, record, file, thing
Set point = CreateObject("Halyard.StructureInfo")
point.AddSimpleMember "X", 12
point.AddSimpleMember "Label", 1
point.CalculateDataSize
Set record = point.CreateDataObject
Set file = CreateObject("Halyard.OrmFile")

On Error Resume Next
thing = point.MemberName(9)
Report "a position out of range"
thing = file.ReadData
Report "reading without a file"
record("X") = "two and a half"
Report "text where a number belongs"
point.Id = "seven"
Report "text for an argument"
point.NoSuchMember
Report "a missing member"
point.AddSimpleMember "X"
Report "a missing argument"
point.RemoveAll 1
Report "a surplus argument"
thing = "as text: " & record
Report "a record as text"
Set thing = CreateObject("Halyard.ItemDefVD")
Report "a class that is only declared"
WScript.Echo "a file that is not there: " & file.OpenForRead("no such file")
Report "no failure"
WScript.Echo "done"

Sub Report(what)
  If Err.Number = 0 Then
    WScript.Echo what
  Else
    WScript.Echo what & ": 0x" & Hex(Err.Number) & " [" & Err.Source & "] " & Err.Description
  End If
  Err.Clear
End Sub
