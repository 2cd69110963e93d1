// The list of all classes: the one place that knows every one of them.
#include "object/class_table.h"

#include "definitions/array_info.h"
#include "definitions/enumeration_info.h"
#include "definitions/simple_value_info.h"
#include "definitions/structure_info.h"
#include "halyard/classes.h"
#include "object/object.h"
#include "stream/orm_file.h"
#include "stream/orm_help.h"
#include "stream/orm_session.h"
#include "stream/unit.h"
#include "values/arrays/array.h"
#include "values/arrays/simple_array.h"
#include "values/arrays/simple_fixed_array.h"
#include "values/arrays/string_array.h"
#include "values/collection.h"
#include "values/enumeration.h"
#include "values/simple_fixed_structure.h"
#include "values/simple_value.h"
#include "values/structure.h"

namespace halyard {
namespace {

// In the order of registration.
constexpr ClassRow kClasses[] = {
    {kArrayInfoClass, "ArrayInfo", 102, &CreateInstance<ArrayInfo>},
    {kSimpleValueInfoClass, "SimpleValueInfo", 103, &CreateInstance<SimpleValueInfo>},
    {kEnumerationInfoClass, "EnumerationInfo", 104, &CreateInstance<EnumerationInfo>},
    {kStructureInfoClass, "StructureInfo", 105, &CreateInstance<StructureInfo>},
    {kStringArrayClass, "StringArray", 106, &CreateInstance<StringArray>},
    {kSimpleFixedArrayClass, "SimpleFixedArray", 107, &CreateInstance<SimpleFixedArray>},
    {kSimpleArrayClass, "SimpleArray", 108, &CreateInstance<SimpleArray>},
    {kArrayClass, "Array", 101, &CreateInstance<Array>},
    {kSimpleValueClass, "SimpleValue", 110, &CreateInstance<SimpleValue>},
    {kEnumerationClass, "Enumeration", 111, &CreateInstance<Enumeration>},
    {kSimpleFixedStructureClass, "SimpleFixedStructure", 112, &CreateInstance<SimpleFixedStructure>},
    {kStructureClass, "Structure", 113, &CreateInstance<Structure>},
    {kCollectionClass, "Collection", 114, &CreateInstance<Collection>},
    {kUnitClass, "Unit", 116, &CreateInstance<Unit>},
    {kOrmSessionClass, "OrmSession", 117, &CreateInstance<OrmSession>},
    {kOrmFileClass, "OrmFile", 118, &CreateInstance<OrmFile>},
    {kOrmHelpClass, "OrmHelp", 119, &CreateInstance<OrmHelp>},
};

}  // namespace

std::span<const ClassRow> ClassTable() noexcept { return kClasses; }

}  // namespace halyard
