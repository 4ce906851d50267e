// The rules by which LineReader reads: part of line_reader.h.
#pragma once

namespace conmuta {

template <class Watch>
bool LineReader<Watch>::Year(emParamDato kind, std::int16_t& value) {
  const PlannedItem& item = Select(kind);
  value = 0;
  std::int32_t read = kNoNumber;
  if (item.IsNumeric()) [[likely]] {
    if (!Number(item, INT16_MAX, read)) return TellNumber(kind, item, 0), false;
    if (read != kNoNumber) {
      const std::int32_t year = years_.For(clock_.Today().year).Complete(read);
      if (year > INT16_MAX) return Check(LineError::kOverflow), TellNumber(kind, item, 0), false;
      value = static_cast<std::int16_t>(year);
    }
  }
  TellNumber(kind, item, value);
  return true;
}

template <class Watch>
bool LineReader<Watch>::CalendarPart(emParamDato kind, std::int32_t last, int CivilDate::*today,
                                     std::int16_t& value) {
  const PlannedItem& item = Select(kind);
  value = 0;
  if (item.IsNumeric()) [[likely]] {
    std::int32_t part = kNoNumber;
    if (!Number(item, INT16_MAX, part)) return TellNumber(kind, item, 0), false;
    value = static_cast<std::int16_t>(part >= 1 && part <= last ? part : clock_.Today().*today);
  }
  TellNumber(kind, item, value);
  return true;
}

template <class Watch>
bool LineReader<Watch>::Amount(emParamDato kind, std::int32_t most, std::int32_t& value) {
  const PlannedItem& item = Select(kind);
  value = 0;
  std::int32_t number = kNoNumber;
  if (!Number(item, INT32_MAX, number)) return TellNumber(kind, item, 0), false;
  value = std::clamp(number, 0, most);
  TellNumber(kind, item, value);
  return true;
}

template <class Watch>
template <class Store>
bool LineReader<Watch>::ReadText(emParamDato kind, Store store) {
  const PlannedItem& item = Select(kind);
  switch (item.form) {
    case PlannedItem::Form::kOneDigit:
    case PlannedItem::Form::kTwoDigits:
    case PlannedItem::Form::kFewDigits:
    case PlannedItem::Form::kDigits:
      TellText(kind, item, store(line_.DigitsIn(item.begin, item.digits)));
      return true;
    case PlannedItem::Form::kManyDigits:
      TellText(kind, item, store(DigitsOf{line_.Cut(item.begin, item.size)}));
      return true;
    case PlannedItem::Form::kUndefined:
    case PlannedItem::Form::kText:
      TellText(kind, item, store(line_.Cut(item.begin, item.size)));
      return true;
    default:
      Check(LineError::kOverflow);
      TellText(kind, item, {});
      return false;
  }
}

template <class Watch>
bool LineReader<Watch>::Stands(emParamDatoConstante kind, bool& stands) {
  active_.constant = kind;
  const PlannedConstant& constant = plan_[kind];
  stands = constant.form == PlannedConstant::Form::kComparable && constant.StandsAmong(columns_);
  if (constant.form == PlannedConstant::Form::kBeyond) Check(LineError::kOverflow);
  TellLook(kind, constant, stands);
  return error_ == LineError::kNone;
}

template <class Watch>
bool LineReader<Watch>::Identifies(const TypeIdentifiers& row, bool& identified) {
  identified = false;
  if (!IsDefined(row.plain)) return true;
  if (!Stands(row.plain, identified)) return false;
  if (!identified) return Stands(row.instead, identified);
  return !IsDefined(row.also) || Stands(row.also, identified);
}

template <class Watch>
bool LineReader<Watch>::CallType(emTiposLlamadas& type) {
  type = emLlamadaIndefinida;
  if (!line_.HasDigit()) {
    watch_.Because(NoCall::kNoDigits);
    return true;
  }
#pragma GCC unroll 4  // so that each knows its kinds
  for (const TypeIdentifiers& row : kTypeIdentifiers) {
    bool identified = false;
    if (!Identifies(row, identified)) return false;
    if (!identified) continue;
    type = row.type;
    break;
  }
  return true;
}

template <class Watch>
bool LineReader<Watch>::Attribute(emTiposLlamadas type, emAtributosLlamadas& attribute) {
  attribute = emSinAtributo;
  const TypeIdentifiers* row = FindTypeIdentifiers(type);
  if (row == nullptr) return true;
  bool stands = false;
  if (!Stands(row->transfer_start, stands)) return false;
  if (stands) return attribute = emAtributoIniTransferida, true;
  if (!Stands(row->transfer_end, stands)) return false;
  if (stands) attribute = emAtributoFinTransferida;
  return true;
}

template <class Watch>
bool LineReader<Watch>::ReadDate(clsLlamadaTRD& call, emParamTipoFecha group, emParamDato year,
                                 emParamDato month, emParamDato day) {
  std::int16_t value = 0;
  if (!Year(year, value)) return false;
  call.Anio(group, value, clock_);
  if (!Month(month, value)) return false;
  call.Mes(group, value, clock_);
  if (!Day(day, value)) return false;
  call.Dia(group, value, clock_);
  return true;
}

template <class Watch>
bool LineReader<Watch>::ReadTime(clsLlamadaTRD& call, emParamTipoFecha group, emParamDato hours,
                                 emParamDato minutes, emParamDato seconds) {
  std::int32_t value = 0;
  if (!Amount(hours, INT32_MAX, value)) return false;
  if (value > INT16_MAX) return Check(LineError::kOverflow);
  if (!Check(call.TryHoras(group, static_cast<std::int16_t>(value)))) return false;
  if (!Amount(minutes, 59, value)) return false;
  if (!Check(call.TryMinutos(group, static_cast<std::int16_t>(value)))) return false;
  if (!Amount(seconds, 59, value)) return false;
  return Check(call.TrySegundos(group, static_cast<std::int16_t>(value)));
}

template <class Watch>
bool LineReader<Watch>::ReadPhone(clsLlamadaTRD& call, const CallSlots* slots) {
  if (slots == nullptr) return call.Telefono(TextView()), true;
  return ReadText(slots->phone, [&](auto text) { return call.Telefono(text), call.Telefono(); });
}

template <class Watch>
bool LineReader<Watch>::ReadParties(clsLlamadaTRD& call, const CallSlots* slots) {
  if (slots == nullptr) return call.Emisor(TextView()), call.Receptor(TextView()), true;
  return ReadText(slots->caller, [&](auto text) { return call.Emisor(text), call.Emisor(); }) &&
         ReadText(slots->callee, [&](auto text) { return call.Receptor(text), call.Receptor(); });
}

template <class Watch>
ItemRead LineReader<Watch>::About(emParamDato kind, const PlannedItem& item) const {
  ItemRead about;
  about.kind = kind;
  about.defined = item.IsDefined();
  about.pos = about.defined ? item.begin + 1 : 0;
  about.size = item.size;
  about.found = line_.Cut(item.begin, item.size);
  about.error = error_;
  return about;
}

template <class Watch>
void LineReader<Watch>::TellNumber(emParamDato kind, const PlannedItem& item, std::int32_t number) {
  if constexpr (Watch::kWatches) {
    ItemRead read = About(kind, item);
    read.is_number = true;
    read.number = number;
    watch_.Read(read);
  }
}

template <class Watch>
void LineReader<Watch>::TellText(emParamDato kind, const PlannedItem& item, TextView text) {
  if constexpr (Watch::kWatches) {
    ItemRead read = About(kind, item);
    read.text = text;
    watch_.Read(read);
  }
}

template <class Watch>
void LineReader<Watch>::TellLook(emParamDatoConstante kind, const PlannedConstant& constant,
                                 bool stands) {
  if constexpr (Watch::kWatches) {
    watch_.Looked({.kind = kind,
                   .defined = constant.IsDefined(),
                   .pos = constant.IsDefined() ? constant.begin + 1 : 0,
                   .size = constant.size,
                   .wanted = constant.Wanted(),
                   .found = line_.Cut(constant.begin, constant.size),
                   .stands = stands,
                   .error = error_});
  }
}

}  // namespace conmuta
