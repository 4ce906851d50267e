#include "component/boundary.h"

#include <new>

#include "platform/errors.h"

namespace conmuta::component {
namespace {

// Numbers under which hosts know the failures of a language run time.
constexpr HRESULT RuntimeError(unsigned number) {
  return static_cast<HRESULT>(0x800A0000u + number);
}
constexpr HRESULT kInvalidArgument = RuntimeError(5);
constexpr HRESULT kOverflow = RuntimeError(6);
constexpr HRESULT kObjectNotSet = RuntimeError(91);

const Text kSource = u"Conmuta";

LPOLESTR Terminated(const Text& text) {
  return reinterpret_cast<LPOLESTR>(const_cast<char16_t*>(text.c_str()));
}

HRESULT Report(REFIID iid, HRESULT result, const Text& source, const Text& description) {
  SetErrorInfo(0, nullptr);  // what an earlier failure left does not belong to this one
  ComPtr<ICreateErrorInfo> creator;
  if (FAILED(CreateErrorInfo(creator.Receive()))) return result;
  creator->SetGUID(iid);
  creator->SetSource(Terminated(source));
  creator->SetDescription(Terminated(description));
  if (const auto info = QueryFor<IErrorInfo>(creator.get(), IID_IErrorInfo)) {
    SetErrorInfo(0, info.get());
  }
  return result;
}

HRESULT ReportOverflow(REFIID iid) {
  return Report(iid, kOverflow, kSource, u"Desbordamiento");
}

HRESULT ReportInvalidArgument(REFIID iid) {
  return Report(iid, kInvalidArgument, kSource, u"Argumento o llamada a procedimiento no válida");
}

}  // namespace

HRESULT ReportLine(REFIID iid, LineError error) noexcept {
  if (error == LineError::kNone) [[likely]]
    return S_OK;
  try {
    return error == LineError::kOverflow ? ReportOverflow(iid) : ReportInvalidArgument(iid);
  } catch (...) {
    return ReportCurrentException(iid);
  }
}

HRESULT ReportPlain(HRESULT result) noexcept {
  SetErrorInfo(0, nullptr);
  return result;
}

HRESULT ReportCurrentException(REFIID iid) noexcept {
  try {
    try {
      throw;
    } catch (const ConfigError& error) {
      return Report(iid, static_cast<HRESULT>(error.number()), error.source(), error.description());
    } catch (const OverflowError&) {
      return ReportOverflow(iid);
    } catch (const InvalidArgumentError&) {
      return ReportInvalidArgument(iid);
    } catch (const ObjectNotSetError&) {
      return Report(iid, kObjectNotSet, kSource,
                    u"Variable de objeto o de bloque With no establecida");
    } catch (const CallFailed& failure) {
      return ReportPlain(failure.result);
    } catch (const TypeMismatchError&) {
      return ReportPlain(DISP_E_TYPEMISMATCH);
    } catch (const std::bad_alloc&) {
      return ReportPlain(E_OUTOFMEMORY);
    }
  } catch (const std::bad_alloc&) {
    return ReportPlain(E_OUTOFMEMORY);  // none left for the words either
  } catch (...) {
    return ReportPlain(E_UNEXPECTED);
  }
}

}  // namespace conmuta::component
