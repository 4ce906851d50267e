// One line being translated, and the groups of items that several translations read alike.
#pragma once

#include "translate/clsLlamadaTRD.h"
#include "translate/readers.h"

namespace conmuta {

class LineReader {
 public:
  LineReader(clsCfgConmut& config, TextView line, const Clock& clock)
      : config_(config), line_(line), clock_(clock) {}
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;

  clsCfgConmut& config() { return config_; }
  TextView line() const { return line_; }

  // Year, month, day, hours, minutes and seconds, in this order.
  void ReadStart(clsLlamadaTRD& call);
  void ReadDuration(clsLlamadaTRD& call);

  // Hours, minutes and seconds only.
  void ReadDurationTime(clsLlamadaTRD& call);
  void ReadRing(clsLlamadaTRD& call);  // adds to what is there

  // Number, caller and callee, as the call's own type and attribute tell.
  void ReadPhone(clsLlamadaTRD& call);
  void ReadParties(clsLlamadaTRD& call);
  // The same with an attribute that is not the call's.
  void ReadParties(clsLlamadaTRD& call, emAtributosLlamadas attribute);

  void ReadAccountCode(clsLlamadaTRD& call);

 private:
  void ReadDate(clsLlamadaTRD& call, emParamTipoFecha group, emParamDato year, emParamDato month,
                emParamDato day);
  void ReadTime(clsLlamadaTRD& call, emParamTipoFecha group, emParamDato hours, emParamDato minutes,
                emParamDato seconds);

  clsCfgConmut& config_;
  TextView line_;
  const Clock& clock_;
  basConmuta::FieldBuffer buffer_;
};

}  // namespace conmuta
