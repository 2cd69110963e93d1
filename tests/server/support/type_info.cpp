#include "tests/server/support/type_info.h"

#include "tests/server/support/class_rows.h"
#include "tests/support/variants.h"

namespace halyard::test {
namespace {

ArgumentType TypeOf(ITypeInfo* info, const TYPEDESC& description) {
  if (description.vt == VT_PTR) {
    ArgumentType type = TypeOf(info, *description.lptdesc);
    ++type.pointers;
    return type;
  }
  if (description.vt != VT_USERDEFINED) return {description.vt};
  Ptr<ITypeInfo> referenced;
  Check(info->GetRefTypeInfo(description.hreftype, referenced.Out()));
  const IID iid = FactsOf(referenced).guid;
  // The standard type library describes what VT_DISPATCH is a short form of.
  if (iid == IidOf<IDispatch>) return {VT_DISPATCH, -1};
  return {VT_USERDEFINED, 0, iid};
}

Parameter ParameterOf(ITypeInfo* info, const ELEMDESC& element, BSTR name) {
  Parameter parameter{Plain(name), TypeOf(info, element.tdesc), element.paramdesc.wParamFlags, {}};
  if ((parameter.flags & PARAMFLAG_FHASDEFAULT) != 0) {
    parameter.default_value = Describe(element.paramdesc.pparamdescex->varDefaultValue);
  }
  return parameter;
}

FunctionDescription DescribeFunction(ITypeInfo* info, const FUNCDESC& function) {
  std::vector<BSTR> names(static_cast<std::size_t>(function.cParams) + 1);
  UINT count = 0;
  Check(info->GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count));
  std::vector<Bstr> owners;
  for (BSTR name : names) owners.push_back(Bstr::Adopt(name));
  FunctionDescription result{Plain(names[0]),
                             DocumentationOf(Ptr<ITypeInfo>(info), function.memid).help,
                             function.memid,
                             function.invkind,
                             static_cast<std::size_t>(function.oVft),
                             {}};
  for (std::size_t i = 0; i + 1 != names.size(); ++i) {
    result.parameters.push_back(ParameterOf(info, function.lprgelemdescParam[i], names[i + 1]));
  }
  return result;
}

}  // namespace

Ptr<ITypeLib> RegisteredLibrary() {
  Ptr<ITypeLib> library;
  Check(LoadRegTypeLib(LibraryId(), 1, 0, LOCALE_USER_DEFAULT, library.Out()));
  return library;
}

Ptr<ITypeInfo> DispatchHalf(const Ptr<ITypeLib>& library, REFIID iid) {
  Ptr<ITypeInfo> info;
  Check(library->GetTypeInfoOfGuid(iid, info.Out()));
  return info;
}

Ptr<ITypeInfo> Implemented(const Ptr<ITypeInfo>& info, UINT index) {
  HREFTYPE reference = 0;
  Check(info->GetRefTypeOfImplType(index, &reference));
  Ptr<ITypeInfo> result;
  Check(info->GetRefTypeInfo(reference, result.Out()));
  return result;
}

Ptr<ITypeInfo> VtableHalf(const Ptr<ITypeInfo>& dispatch_half) {
  return Implemented(dispatch_half, static_cast<UINT>(-1));
}

TypeFacts FactsOf(const Ptr<ITypeInfo>& info) {
  TYPEATTR* attributes = nullptr;
  Check(info->GetTypeAttr(&attributes));
  const TypeFacts facts{attributes->guid, attributes->typekind, attributes->wTypeFlags,
                        attributes->cImplTypes};
  info->ReleaseTypeAttr(attributes);
  return facts;
}

Documentation DocumentationOf(const Ptr<ITypeInfo>& info, MEMBERID member) {
  Bstr name;
  Bstr help;
  Check(info->GetDocumentation(member, name.Out(), help.Out(), nullptr, nullptr));
  return {Plain(name.View()), Plain(help.View())};
}

std::vector<FunctionDescription> Functions(const Ptr<ITypeInfo>& vtable_half) {
  std::vector<FunctionDescription> result;
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(vtable_half->GetFuncDesc(i, &function)); ++i) {
    result.push_back(DescribeFunction(vtable_half.get(), *function));
    vtable_half->ReleaseFuncDesc(function);
  }
  return result;
}

std::vector<FunctionDescription> AllFunctions(const Ptr<ITypeInfo>& vtable_half) {
  if (FactsOf(vtable_half).guid == IidOf<IDispatch>) return {};
  std::vector<FunctionDescription> result = AllFunctions(Implemented(vtable_half, 0));
  for (FunctionDescription& function : Functions(vtable_half)) result.push_back(std::move(function));
  return result;
}

}  // namespace halyard::test
