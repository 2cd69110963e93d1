// A log of measuring stations in a file of units: defines a record, writes three of them,
// reads the file back knowing nothing but its name, walks over what it finds, converts
// values, and shows what a failure looks like.
//
//   cscript //nologo station_log.js station_log.orm
var kString = 1, kShort = 6, kReal = 12;
var kGood = 1, kDoubtful = 2;

var fileName = WScript.Arguments(0);

writeLog(defineStation());
readLog();
convertValues();
failOnPurpose();
WScript.Echo("done");

// A record of a name, a depth that may be missing, a list of samples and a quality out
// of a list of names.
function defineStation() {
  var quality = new ActiveXObject("Halyard.EnumerationInfo");
  quality.Id = 2;
  quality.Name = "Quality";
  quality.AddMember("good", kGood);
  quality.AddMember("doubtful", kDoubtful);

  var station = new ActiveXObject("Halyard.StructureInfo");
  station.Id = 1;
  station.Name = "Station";
  station.AddSimpleMember("Name", kString);
  station.AddSimpleMember("Depth", kReal);
  station.CanBeNull("Depth") = true;
  station.AddSimpleArrayMember("Samples", kShort, 0);
  station.AddMember("Quality", quality);
  station.CalculateDataSize();
  return station;
}

function writeLog(definition) {
  var log = new ActiveXObject("Halyard.OrmFile");
  if (!log.OpenForWrite(fileName)) WScript.Echo("the file cannot be written");
  log.WriteInfo(definition);
  log.WriteData(station(definition, "North pier", 12.5, [3, 1, 4], kGood));
  log.WriteData(station(definition, "Old lock", null, [], kDoubtful));
  log.WriteData(station(definition, "South mole", 7.25, [15], kGood));
  log.Close();
}

function station(definition, name, depth, samples, quality) {
  var record = definition.CreateDataObject();
  record.Item("Name") = name;
  record.Item("Depth") = depth;
  var list = record.At("Samples");
  for (var i = 0; i < samples.length; ++i) list.Add(samples[i]);
  record.Item("Quality") = quality;
  return record;
}

function readLog() {
  var log = new ActiveXObject("Halyard.OrmFile");
  if (!log.OpenForRead(fileName)) WScript.Echo("the file cannot be read");
  for (var unit = log.ReadUnit(); unit !== null; unit = log.ReadUnit()) {
    if (unit.IsInfoUnit) showDefinition(unit.Info); else showRecord(unit.Value);
  }
  log.Close();
}

function showDefinition(definition) {
  WScript.Echo(definition.TypeString + " " + definition.Name + ", " + definition.MemberCount + " members:");
  for (var i = 0; i < definition.MemberCount; ++i) {
    WScript.Echo("  " + definition.MemberName(i) + " is a " + definition.Members(i).TypeString);
  }
}

function showRecord(record) {
  var depth = record.Item("Depth");
  var text = record.Item("Name") + (depth === null ? ", no depth" : ", depth " + depth) + ", samples";
  for (var each = new Enumerator(record.At("Samples")); !each.atEnd(); each.moveNext()) {
    text += " " + each.item();
  }
  WScript.Echo(text + ", quality " + record.Item("Quality"));
}

function convertValues() {
  var definition = new ActiveXObject("Halyard.SimpleValueInfo");
  definition.Type = kShort;
  var number = definition.CreateDataObject();
  number.Value = "321";
  WScript.Echo("a " + number.TypeString + " made of text: " + number.Value);
  number.Value = 98.6;
  WScript.Echo("and of a real: " + number.Value);
}

function failOnPurpose() {
  var definition = new ActiveXObject("Halyard.StructureInfo");
  try {
    WScript.Echo(definition.MemberName(5));
  } catch (failure) {
    WScript.Echo("error 0x" + (failure.number >>> 0).toString(16).toUpperCase());
    WScript.Echo(failure.message);
  }
}
