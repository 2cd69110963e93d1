' What a script does with definitions and values besides plain calls: default members,
' variables as arguments, out arguments, properties that hold objects, walks.
Option Explicit

Dim point, record, name, kind, place, size, part, found

Set point = CreateObject("Halyard.StructureInfo")
point.Name = "Point"
point.Id = 4
point.AddSimpleMember "X", 12
point.AddSimpleMember "Count", 8
point.AddSimpleMember "Label", 1
WScript.Echo "size " & point.CalculateDataSize & ", a " & TypeName(point.DataSize)

WScript.Echo "member 1: " & point.MemberInfo(1, kind, place, size) & ", type " & kind & ", place " & place & _
             ", size " & size & ", a " & TypeName(size)

Set record = point.CreateDataObject
name = "X"
record(name) = 2.5
record.Item("Count") = "17"
record(2) = "here"
WScript.Echo "by variable " & record(name) & ", by position " & record(1) & ", by name " & record("Label")
WScript.Echo "an unknown member is null: " & IsNull(record("Nothing of the kind"))

For Each part In record
  WScript.Echo "content " & part
Next
For Each part In point
  WScript.Echo "member of type " & part.TypeString
Next

Dim packet
Set packet = CreateObject("Halyard.Unit")
Set packet.Info = point
Set found = packet.Info
WScript.Echo "info unit " & packet.IsInfoUnit & " of " & found.Name & ", data unit " & packet.IsDataUnit
Set packet.Info = Nothing
WScript.Echo "emptied: " & (packet.Info Is Nothing)

Dim numberInfo, number, total
Set numberInfo = CreateObject("Halyard.SimpleValueInfo")
numberInfo.Type = 8
Set number = CreateObject("Halyard.SimpleValue")
Set number.Info = numberInfo
number.Value = 40
total = number + 2
WScript.Echo "a value counts as its content: " & total & ", as text " & number

Dim copy
Set copy = record.Copy
copy("X") = -1
WScript.Echo "the copy has " & copy("X") & ", the original " & record("X")
WScript.Echo "done"
