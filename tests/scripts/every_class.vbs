' Every class that can be created by name: what a new object of it is, and its main use.
Option Explicit

Const kString = 1, kByte = 5, kLong = 8, kReal = 12

Dim name, made
For Each name In Array("ArrayInfo", "SimpleValueInfo", "EnumerationInfo", "StructureInfo", "StringArray", _
                       "SimpleFixedArray", "SimpleArray", "Array", "SimpleValue", "Enumeration", _
                       "SimpleFixedStructure", "Structure", "Collection", "Unit", "OrmSession", "OrmFile", "OrmHelp")
  Set made = CreateObject("Halyard." & name)
  WScript.Echo name & " " & Described(made)
Next

' Definitions, one of each kind.
Dim number, colours, point, extent, row, texts, grid, track
Set number = CreateObject("Halyard.SimpleValueInfo")
number.Type = kByte
number.MinValue = 1
number.MaxValue = 6
WScript.Echo number.TypeString & " from " & number.MinValue & " to " & number.MaxValue & ", " & _
             number.CalculateDataSize & " byte"

Set colours = CreateObject("Halyard.EnumerationInfo")
colours.Name = "Colour"
colours.Id = 3
colours.AddMember "Red", 10
colours.AddMember "Green", 20
WScript.Echo colours.TypeString & " " & colours.Name & ": " & Listed(colours) & ", " & colours.ElementName(1) & _
             " is " & colours.ElementValue(1) & ", kept as " & colours.DataTypeString

Set point = CreateObject("Halyard.StructureInfo")
point.Name = "Point"
point.Id = 4
point.AddSimpleMember "X", kReal
point.AddMember "Colour", colours
WScript.Echo point.TypeString & " of " & point.MemberCount & ", " & point.CalculateDataSize & " bytes"

Set extent = CreateObject("Halyard.StructureInfo")
extent.AddSimpleMember "From", kReal
extent.AddSimpleMember "To", kReal
WScript.Echo extent.TypeString & " of " & extent.MemberCount & ", " & extent.CalculateDataSize & " bytes"

Set row = Defined(kLong, 3)
Set texts = Defined(kString, 0)
Set grid = Defined(kLong, 0)
Set track = CreateObject("Halyard.ArrayInfo")
track.ValueType = point
track.Id = 5
track.CalculateDataSize
WScript.Echo track.TypeString & " of " & track.ValueType.Name & ", type " & track.DataTypeString

' Values, each created by name and given its definition.
Dim value
Set value = Valued("SimpleValue", number)
value.Value = "5"
WScript.Echo "SimpleValue: " & value & " in " & value.PacketSize & " byte"

Set value = Valued("Enumeration", colours)
WScript.Echo "Enumeration: first " & value
value.Value = 20
WScript.Echo "Enumeration: then " & value & " in " & value.PacketSize & " byte"

Set value = Valued("Structure", point)
value("X") = "2.5"
value("Colour") = 20
WScript.Echo "Structure: " & Listed(value) & ", " & value.Name(1) & " " & value(1) & ", " & value.PacketSize & " bytes"

Set value = Valued("SimpleFixedStructure", extent)
value("To") = "2.5"
WScript.Echo "SimpleFixedStructure: " & Listed(value) & ", " & value.Name(1) & " " & value(1) & ", " & _
             value.PacketSize & " bytes"

Set value = Valued("SimpleFixedArray", row)
value(2) = 7
value.Add 8
WScript.Echo "SimpleFixedArray: " & Listed(value) & ", " & value.PacketSize & " bytes"

Set value = Valued("SimpleArray", grid)
value.Add 1
value.Add 2.5
value.Remove 0
WScript.Echo "SimpleArray: " & Listed(value) & ", " & value.PacketSize & " bytes"

Set value = Valued("StringArray", texts)
value.Add "Basel"
value.Add 12
WScript.Echo "StringArray: " & Listed(value) & ", " & value.PacketSize & " bytes"

Dim place, tour
Set tour = Valued("Array", track)
Set place = point.CreateDataObject
place("X") = -1
tour.Add place
tour.Add tour.At(0).Copy
place("X") = 4
WScript.Echo "Array: " & tour.Count & " of " & tour.Info.ValueType.Name & ", X " & tour.At(0)("X") & " and " & _
             tour.At(1)("X")

' A collection is declared only.
Set value = CreateObject("Halyard.Collection")
On Error Resume Next
WScript.Echo value.Count
WScript.Echo "Collection of type " & value.Type & ": 0x" & Hex(Err.Number)
On Error GoTo 0

' All of them through one file.
Dim out, packet, file, read
Set out = CreateObject("Halyard.OrmFile")
out.OpenForWrite WScript.Arguments(0)
For Each value In Array(colours, point, track)
  Set packet = CreateObject("Halyard.Unit")
  packet.Info = value
  WScript.Echo "wrote the definition " & value.Name & ": " & out.WriteUnit(packet)
Next
WScript.Echo "wrote the tour: " & out.WriteData(tour)
out.Close

Set file = CreateObject("Halyard.OrmFile")
file.OpenForRead WScript.Arguments(0)
Do
  Set packet = file.ReadUnit
  If packet Is Nothing Then Exit Do
  If packet.IsInfoUnit Then
    WScript.Echo "read the definition " & packet.Info.TypeString & " " & packet.Info.Name
  Else
    Set read = packet.Value
    WScript.Echo "read " & packet.TypeString & " of " & read.Count & ", X " & read.At(1)("X") & ", colour " & _
                 read.At(1)("Colour")
  End If
Loop
WScript.Echo "found again: " & file.Session.GetStructureByName("point").Name
file.Close

Dim help
Set help = CreateObject("Halyard.OrmHelp")
WScript.Echo "from the factory: " & help.CreateArray("Real").TypeString & " of " & help.CreateArray("Real").Info.Name
WScript.Echo "done"

' The type that an object says to have, where it has one.
Function Described(thing)
  On Error Resume Next
  Described = "of type " & thing.TypeString
  If Err.Number <> 0 Then Described = "without a type"
  Err.Clear
End Function

' The items of a walk.
Function Listed(thing)
  Dim item, text
  For Each item In thing
    text = text & " " & item
  Next
  Listed = Mid(text, 2)
End Function

' An array definition, ready for use.
Function Defined(elementType, count)
  Set Defined = CreateObject("Halyard.ArrayInfo")
  Defined.DataType = elementType
  Defined.ElementCount = count
  Defined.CalculateDataSize
End Function

' A new value of a class, for a definition.
Function Valued(className, definition)
  Set Valued = CreateObject("Halyard." & className)
  Valued.Info = definition
End Function
