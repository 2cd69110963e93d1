' Times a script's access to one member of a record and, as the measure to compare with, to
' one entry of a dictionary. Prints a line for each round: task, participant, milliseconds.
'
'   cscript //nologo member_access.vbs ROUNDS CALLS
Option Explicit
Const kReal = 12

Dim rounds, calls, record, dictionary, round
rounds = CLng(WScript.Arguments(0))
calls = CLng(WScript.Arguments(1))
Set record = NewRecord()
Set dictionary = NewDictionary()

Check record
Check dictionary
For round = 1 To rounds
  Report "put", "Halyard", MillisecondsOfPuts(record)
  Report "put", "limit", MillisecondsOfPuts(dictionary)
  Report "get", "Halyard", MillisecondsOfGets(record)
  Report "get", "limit", MillisecondsOfGets(dictionary)
Next
WScript.Echo "done"

' Ten members, as many as the dictionary has entries.
Function Names()
  Names = Array("id", "x", "y", "z", "depth", "course", "speed", "pitch", "roll", "quality")
End Function

Function NewRecord()
  Dim definition, name
  Set definition = CreateObject("Halyard.StructureInfo")
  For Each name In Names()
    definition.AddSimpleMember name, kReal
  Next
  definition.CalculateDataSize
  Set NewRecord = definition.CreateDataObject()
End Function

Function NewDictionary()
  Dim name
  Set NewDictionary = CreateObject("Scripting.Dictionary")
  For Each name In Names()
    NewDictionary.Add name, 0.0
  Next
End Function

' Both must give back what was put.
Sub Check(target)
  target("depth") = 12.5
  If target("depth") <> 12.5 Then Err.Raise 5, "member_access", "the member is not what was put"
End Sub

Function MillisecondsOfPuts(target)
  Dim start, i
  start = Timer
  For i = 1 To calls
    target("depth") = 12.5
  Next
  MillisecondsOfPuts = (Timer - start) * 1000
End Function

Function MillisecondsOfGets(target)
  Dim start, i, x
  start = Timer
  For i = 1 To calls
    x = target("depth")
  Next
  MillisecondsOfGets = (Timer - start) * 1000
End Function

Sub Report(task, participant, milliseconds)
  WScript.Echo task & " " & participant & " " & CLng(milliseconds * 1000) / 1000
End Sub
