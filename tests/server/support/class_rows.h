// The creatable classes as clients know them, written down once more: the tests compare
// the component with this table, not with the component's own.
#pragma once

#include <array>

#include "halyard/halyard.h"

namespace halyard::test {

struct ClassRowExpected {
  const OLECHAR* name;
  const OLECHAR* clsid;
  int registry_script;
  IID default_interface;
};

inline constexpr std::array<ClassRowExpected, 17> kExpectedClasses = {{
    {L"ArrayInfo", L"{2861FF58-B8D4-42CF-B1A3-34057592461C}", 102, IidOf<IArrayDef>},
    {L"SimpleValueInfo", L"{5A51CA91-160C-4037-B65E-0E62FF317892}", 103, IidOf<ISimpleValueInfo>},
    {L"EnumerationInfo", L"{DFB6178C-0EAB-4D60-81CE-2850511AFE9D}", 104, IidOf<IEnumerationInfo>},
    {L"StructureInfo", L"{CDAC0A63-8412-464A-B017-72BC483E4E9C}", 105, IidOf<IStructureInfo>},
    {L"StringArray", L"{1432452E-FF36-452D-A5BB-8E905A92B1D0}", 106, IidOf<IStringArray>},
    {L"SimpleFixedArray", L"{578594CB-F7E7-4D2B-AEFD-786D551505EC}", 107, IidOf<ISimpleFixedArray>},
    {L"SimpleArray", L"{A3869748-987F-4C3B-BFAB-861037E5EE6B}", 108, IidOf<ISimpleArray>},
    {L"Array", L"{9EFBC13B-F676-4888-83AC-0D5585DC7FEF}", 101, IidOf<IArrayImpl>},
    {L"SimpleValue", L"{14764A26-BFB9-4631-9D99-CAC264E96671}", 110, IidOf<ISimpleValue>},
    {L"Enumeration", L"{E5A2C32B-DD14-4D90-B65D-AC44133DD312}", 111, IidOf<IEnumeration>},
    {L"SimpleFixedStructure", L"{01DAF2AF-CC40-4F97-8372-36EFD76FE85E}", 112, IidOf<ISimpleFixedStructure>},
    {L"Structure", L"{930B5C8A-A093-4770-963C-4BD5DE062C2C}", 113, IidOf<IStructure>},
    {L"Collection", L"{96CE36FD-A129-4CB2-97DD-ACDC9773E78D}", 114, IidOf<ICollectionImpl>},
    {L"Unit", L"{C33DC372-DD41-4EA6-B732-7D4FA519646A}", 116, IidOf<IUnit>},
    {L"OrmSession", L"{F259061D-4B46-4586-91DB-F1FB91A6AACD}", 117, IidOf<IOrmSession>},
    {L"OrmFile", L"{E544383A-364A-4806-8EA3-8D05DE2128A3}", 118, IidOf<IOrmFile>},
    {L"OrmHelp", L"{A1E02A72-88A3-42C1-BAC5-6944F05004C9}", 119, IidOf<IOrmHelp>},
}};

inline constexpr const OLECHAR* kLibraryIdText = L"{4011E38A-FF8A-4BF4-8C6A-F1F55A3AD8D6}";

// The identifier that a text shows.
inline GUID GuidOf(const OLECHAR* text) {
  GUID guid{};
  Check(CLSIDFromString(text, &guid));
  return guid;
}

inline GUID LibraryId() { return GuidOf(kLibraryIdText); }
inline CLSID ClassId(const ClassRowExpected& row) { return GuidOf(row.clsid); }

}  // namespace halyard::test
