// Sessions and units: definitions found by type, id and name, and a file whose reader
// shares its session with a client.
function show(label, definition) {
  WScript.Echo(label + ": " + (definition === null ? "none" : definition.TypeString + " " + definition.Name));
}

function structure(name, id) {
  var definition = new ActiveXObject("Halyard.StructureInfo");
  definition.Name = name;
  definition.Id = id;
  definition.AddSimpleMember("Number", 8);
  definition.CalculateDataSize();
  return definition;
}

var session = new ActiveXObject("Halyard.OrmSession");
WScript.Echo("added " + session.AddType(structure("First", 1)) + ", without an id " +
             session.AddType(structure("Second", 0)));
show("by type name and id", session.GetTypeFromId("Structure", 1));
show("by type code and id", session.GetTypeFromId(14, 1));
show("by another id", session.GetTypeFromId(14, 2));
show("by name", session.GetStructureByName("FIRST"));
show("by another name", session.GetStructureByName("Third"));

var written = structure("Fourth", 4);
var value = written.CreateDataObject();
value.Item("Number") = 44;
var out = new ActiveXObject("Halyard.OrmFile");
out.OpenForWrite(WScript.Arguments(0));
out.WriteInfo(written);
out.WriteData(value);
var packet = new ActiveXObject("Halyard.Unit");
packet.Value = value;
WScript.Echo("a data unit of " + packet.TypeString + ", " + packet.PacketSize + " bytes, written " +
             out.WriteUnit(packet));
out.Close();

var file = new ActiveXObject("Halyard.OrmFile");
file.Session = session;
WScript.Echo("opened " + file.OpenForRead(WScript.Arguments(0), false));
show("read", file.ReadInfo());
WScript.Echo("value " + file.ReadData().Item("Number") + " and " + file.ReadData().Item("Number"));
show("after the end", file.ReadUnit());
show("kept in the session", session.GetStructureByName("Fourth"));
file.Close();
try {
  file.ReadData();
} catch (failure) {
  WScript.Echo("closed: 0x" + (failure.number >>> 0).toString(16));
}
WScript.Echo("done");
