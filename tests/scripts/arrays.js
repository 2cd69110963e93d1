// Arrays of every kind, made by the factory, by a definition, and as members.
function list(array) {
  var text = "";
  for (var each = new Enumerator(array); !each.atEnd(); each.moveNext()) text += " " + each.item();
  return array.Count + ":" + text;
}

var help = new ActiveXObject("Halyard.OrmHelp");
var numbers = help.CreateArray("Long");
numbers.Add(3);
numbers.Add("5");
numbers.Add(7.6);
WScript.Echo("numbers " + list(numbers));
numbers.Remove(0);
numbers.Item(0) = 50;
WScript.Echo("changed " + list(numbers));
numbers.RemoveAll();
WScript.Echo("emptied " + list(numbers));

var texts = help.CreateArray(1);
texts.Add("one");
texts.Add("");
texts.Add("three");
WScript.Echo("texts " + list(texts));
WScript.Echo("no such array: " + help.CreateArray("FixedString"));

var point = new ActiveXObject("Halyard.StructureInfo");
point.Name = "Point";
point.Id = 5;
point.AddSimpleMember("X", 8);
point.CalculateDataSize();

var points = help.CreateArray(point);
for (var i = 0; i < 3; ++i) {
  var record = point.CreateDataObject();
  record.Item("X") = 10 * i;
  points.Add(record);
}
var sum = 0;
for (var each = new Enumerator(points); !each.atEnd(); each.moveNext()) sum += each.item().Item("X");
WScript.Echo(points.Count + " points, the sum is " + sum + ", the last " + points.At(2).Item("X"));
WScript.Echo("their definition is " + points.Info.Name);

var row = new ActiveXObject("Halyard.ArrayInfo");
row.DataType = 6;
row.ElementCount = 4;
row.CalculateDataSize();
var fixed = row.CreateDataObject();
fixed.Item(2) = -1;
WScript.Echo(row.DataTypeString + " row " + list(fixed) + ", " + fixed.PacketSize + " bytes");
WScript.Echo("done");
