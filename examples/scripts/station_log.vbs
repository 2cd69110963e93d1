' A log of measuring stations in a file of units: defines a record, writes three of them,
' reads the file back knowing nothing but its name, walks over what it finds, converts
' values, and shows what a failure looks like.
'
'   cscript //nologo station_log.vbs station_log.orm
Option Explicit

Const kString = 1, kShort = 6, kReal = 12, kDate = 13
Const kGood = 1, kDoubtful = 2

Dim fileName
fileName = WScript.Arguments(0)

WriteLog DefineStation()
ReadLog
ConvertValues
FailOnPurpose
WScript.Echo "done"

' A record of a name, a date, a depth that may be missing, a list of samples and a
' quality out of a list of names.
Function DefineStation()
  Dim quality, station
  Set quality = CreateObject("Halyard.EnumerationInfo")
  quality.Id = 2
  quality.Name = "Quality"
  quality.AddMember "good", kGood
  quality.AddMember "doubtful", kDoubtful

  Set station = CreateObject("Halyard.StructureInfo")
  station.Id = 1
  station.Name = "Station"
  station.AddSimpleMember "Name", kString
  station.AddSimpleMember "Taken", kDate
  station.AddSimpleMember "Depth", kReal
  station.CanBeNull("Depth") = True
  station.AddSimpleArrayMember "Samples", kShort, 0
  station.AddMember "Quality", quality
  station.CalculateDataSize
  Set DefineStation = station
End Function

Sub WriteLog(definition)
  Dim log
  Set log = CreateObject("Halyard.OrmFile")
  If Not log.OpenForWrite(fileName) Then WScript.Echo "the file cannot be written"
  log.WriteInfo definition
  log.WriteData Station(definition, "North pier", DateSerial(2026, 3, 1), 12.5, Array(3, 1, 4), kGood)
  log.WriteData Station(definition, "Old lock", DateSerial(2026, 3, 2), Null, Array(), kDoubtful)
  log.WriteData Station(definition, "South mole", DateSerial(2026, 3, 3), 7.25, Array(15), kGood)
  log.Close
End Sub

Function Station(definition, name, taken, depth, samples, quality)
  Dim record, list, sample
  Set record = definition.CreateDataObject
  record("Name") = name
  record("Taken") = taken
  record("Depth") = depth
  Set list = record.At("Samples")
  For Each sample In samples
    list.Add sample
  Next
  record("Quality") = quality
  Set Station = record
End Function

Sub ReadLog()
  Dim log, packet
  Set log = CreateObject("Halyard.OrmFile")
  If Not log.OpenForRead(fileName) Then WScript.Echo "the file cannot be read"
  Set packet = log.ReadUnit
  Do Until packet Is Nothing
    If packet.IsInfoUnit Then ShowDefinition packet.Info Else ShowRecord packet.Value
    Set packet = log.ReadUnit
  Loop
  log.Close
End Sub

Sub ShowDefinition(definition)
  Dim i
  WScript.Echo definition.TypeString & " " & definition.Name & ", " & definition.MemberCount & " members:"
  For i = 0 To definition.MemberCount - 1
    WScript.Echo "  " & definition.MemberName(i) & " is a " & definition.Members(i).TypeString
  Next
End Sub

Sub ShowRecord(record)
  Dim text, sample
  text = record("Name") & " on " & Year(record("Taken")) & "-" & Month(record("Taken")) & "-" & Day(record("Taken"))
  If IsNull(record("Depth")) Then
    text = text & ", no depth"
  Else
    text = text & ", depth " & record("Depth")
  End If
  text = text & ", samples"
  For Each sample In record.At("Samples")
    text = text & " " & sample
  Next
  WScript.Echo text & ", quality " & record("Quality")
End Sub

Sub ConvertValues()
  Dim definition, number
  Set definition = CreateObject("Halyard.SimpleValueInfo")
  definition.Type = kShort
  Set number = definition.CreateDataObject
  number.Value = "321"
  WScript.Echo "a " & number.TypeString & " made of text: " & number
  number.Value = 98.6
  WScript.Echo "and of a real: " & number
End Sub

Sub FailOnPurpose()
  Dim definition
  Set definition = CreateObject("Halyard.StructureInfo")
  On Error Resume Next
  WScript.Echo definition.MemberName(5)
  WScript.Echo "error 0x" & Hex(Err.Number) & " from " & Err.Source
  WScript.Echo Err.Description
  Err.Clear
End Sub
