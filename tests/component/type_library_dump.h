// A type library as text: what hosts compiled against it are bound to.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdio>
#include <string>

#include "host.h"

namespace conmuta::test {

class TypeLibraryDump {
 public:
  explicit TypeLibraryDump(ITypeLib* library) {
    TLIBATTR* attributes = nullptr;
    if (FAILED(library->GetLibAttr(&attributes))) return;
    Line("library %s %s version %d.%d lcid %ld flags 0x%x", NameOf(library, -1).c_str(),
         ToString(attributes->guid).c_str(), attributes->wMajorVerNum, attributes->wMinorVerNum,
         static_cast<long>(attributes->lcid), attributes->wLibFlags);
    library->ReleaseTLibAttr(attributes);
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
      ComPtr<ITypeInfo> info;
      if (SUCCEEDED(library->GetTypeInfo(i, info.Receive()))) Type(info.get());
    }
  }

  const std::string& text() const { return text_; }

 private:
  template <class... Values>
  void Line(const char* format, Values... values) {
    char line[1024];
    std::snprintf(line, sizeof line, format, values...);
    text_.append(line).append("\n");
  }
  void Line(const char* line) { text_.append(line).append("\n"); }

  // Names, identifiers and help strings are plain ASCII; what is not shows as "?".
  static std::string Narrow(BSTR text) {
    std::string narrow;
    for (const char16_t c : TakeText(text)) narrow += c < 0x80 ? static_cast<char>(c) : '?';
    return narrow;
  }
  static std::string ToString(REFGUID guid) {
    OLECHAR text[39];
    StringFromGUID2(guid, text, 39);
    return {text, text + 38};
  }
  static std::string NameOf(ITypeLib* library, INT index) {
    BSTR name = nullptr;
    library->GetDocumentation(index, &name, nullptr, nullptr, nullptr);
    return Narrow(name);
  }
  static std::string NameOf(ITypeInfo* info, MEMBERID member = MEMBERID_NIL) {
    BSTR name = nullptr;
    info->GetDocumentation(member, &name, nullptr, nullptr, nullptr);
    return Narrow(name);
  }

  // Quoted, behind a blank.
  static std::string HelpOf(ITypeInfo* info, MEMBERID member = MEMBERID_NIL) {
    BSTR help = nullptr;
    info->GetDocumentation(member, nullptr, &help, nullptr, nullptr);
    return " \"" + Narrow(help) + "\"";
  }

  static std::string TypeName(ITypeInfo* info, const TYPEDESC& type) {
    switch (type.vt) {
      case VT_PTR:
        return TypeName(info, *type.lptdesc) + "*";
      case VT_USERDEFINED: {
        ComPtr<ITypeInfo> defined;
        if (FAILED(info->GetRefTypeInfo(type.hreftype, defined.Receive()))) return "?";
        return NameOf(defined.get());
      }
      case VT_VOID:
        return "void";
      case VT_HRESULT:
        return "HRESULT";
      case VT_I2:
        return "short";
      case VT_I4:
        return "long";
      case VT_UI1:
        return "unsigned char";
      case VT_BOOL:
        return "VARIANT_BOOL";
      case VT_BSTR:
        return "BSTR";
      case VT_DATE:
        return "DATE";
      case VT_VARIANT:
        return "VARIANT";
      default:
        return "vt" + std::to_string(type.vt);
    }
  }

  void Type(ITypeInfo* info) {
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetTypeAttr(&attributes))) return;
    Line("");
    const char* const kinds[] = {"enum",     "record", "module", "interface",
                                 "dispatch", "class",  "alias",  "union"};
    Line("%s %s %s flags 0x%x%s", kinds[attributes->typekind], NameOf(info).c_str(),
         ToString(attributes->guid).c_str(), attributes->wTypeFlags, HelpOf(info).c_str());
    const bool is_dual =
        attributes->typekind == TKIND_DISPATCH && (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0;
    if (is_dual) {
      VirtualTable(info);
    } else if (attributes->typekind == TKIND_COCLASS) {
      Implemented(info, attributes->cImplTypes);
    } else {
      for (UINT i = 0; i < attributes->cVars; ++i) Constant(info, i);
      for (UINT i = 0; i < attributes->cFuncs; ++i) Function(info, i);
    }
    info->ReleaseTypeAttr(attributes);
  }

  void Constant(ITypeInfo* info, UINT index) {
    VARDESC* variable = nullptr;
    if (FAILED(info->GetVarDesc(index, &variable))) return;
    Line("  %s = %ld%s", NameOf(info, variable->memid).c_str(),
         variable->varkind == VAR_CONST ? static_cast<long>(V_I4(variable->lpvarValue)) : -1L,
         HelpOf(info, variable->memid).c_str());
    info->ReleaseVarDesc(variable);
  }

  // A dual interface's own members, in the order of its virtual table.
  void VirtualTable(ITypeInfo* dispatch) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> info;
    TYPEATTR* attributes = nullptr;
    if (FAILED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) ||
        FAILED(dispatch->GetRefTypeInfo(reference, info.Receive())) ||
        FAILED(info->GetTypeAttr(&attributes))) {
      return;
    }
    HREFTYPE base = 0;
    ComPtr<ITypeInfo> base_info;
    if (SUCCEEDED(info->GetRefTypeOfImplType(0, &base)) &&
        SUCCEEDED(info->GetRefTypeInfo(base, base_info.Receive()))) {
      Line("  inherits %s", NameOf(base_info.get()).c_str());
    }
    for (UINT i = 0; i < attributes->cFuncs; ++i) Function(info.get(), i);
    info->ReleaseTypeAttr(attributes);
  }

  void Function(ITypeInfo* info, UINT index) {
    FUNCDESC* function = nullptr;
    if (FAILED(info->GetFuncDesc(index, &function))) return;
    const char* const kind = function->invkind == INVOKE_FUNC          ? "method"
                             : function->invkind == INVOKE_PROPERTYGET ? "get"
                             : function->invkind == INVOKE_PROPERTYPUT ? "put"
                                                                       : "putref";
    std::string line = "  ";
    // A slot is as wide as a pointer; the number of the slot is the same everywhere.
    if (function->funckind == FUNC_PUREVIRTUAL) {
      line += "slot " + std::to_string(function->oVft / static_cast<int>(sizeof(void*))) + " ";
    }
    line += "id " + std::to_string(function->memid) + " " + kind + " " +
            TypeName(info, function->elemdescFunc.tdesc) + " " + NameOf(info, function->memid) +
            "(";
    BSTR names[8] = {};
    UINT count = 0;
    info->GetNames(function->memid, names, 8, &count);
    for (int i = 0; i < function->cParams; ++i) {
      const ELEMDESC& parameter = function->lprgelemdescParam[i];
      const USHORT flags = parameter.paramdesc.wParamFlags;
      if (i != 0) line += ", ";
      line += "[";
      if ((flags & PARAMFLAG_FIN) != 0) line += "in ";
      if ((flags & PARAMFLAG_FOUT) != 0) line += "out ";
      if ((flags & PARAMFLAG_FRETVAL) != 0) line += "retval ";
      if ((flags & PARAMFLAG_FOPT) != 0) line += "optional ";
      if ((flags & PARAMFLAG_FHASDEFAULT) != 0) {
        const VARIANT& value = parameter.paramdesc.pparamdescex->varDefaultValue;
        line +=
            "default vt" + std::to_string(V_VT(&value)) + ":" + std::to_string(V_I2(&value)) + " ";
      }
      line.back() = ']';
      line += " " + TypeName(info, parameter.tdesc);
      // What is assigned to a property has no name of its own.
      const bool is_assigned =
          (function->invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0 &&
          i + 1 == function->cParams;
      if (!is_assigned && static_cast<UINT>(i) + 1 < count) {
        const Text name(component::View(names[i + 1]));
        line += " " + std::string(name.begin(), name.end());
      }
    }
    for (BSTR name : names) SysFreeString(name);
    Line("%s) flags 0x%x callconv %d%s", line.c_str(), function->wFuncFlags, function->callconv,
         HelpOf(info, function->memid).c_str());
    info->ReleaseFuncDesc(function);
  }

  void Implemented(ITypeInfo* info, UINT count) {
    for (UINT i = 0; i < count; ++i) {
      HREFTYPE reference = 0;
      INT flags = 0;
      ComPtr<ITypeInfo> implemented;
      if (FAILED(info->GetRefTypeOfImplType(i, &reference)) ||
          FAILED(info->GetRefTypeInfo(reference, implemented.Receive())) ||
          FAILED(info->GetImplTypeFlags(i, &flags))) {
        continue;
      }
      Line("  %s%s%s", (flags & IMPLTYPEFLAG_FDEFAULT) != 0 ? "default " : "",
           (flags & IMPLTYPEFLAG_FSOURCE) != 0 ? "source " : "", NameOf(implemented.get()).c_str());
    }
  }

  std::string text_;
};

}  // namespace conmuta::test
