// Layouts that several tests read lines with.
#pragma once

#include "support/config_builder.h"

namespace conmuta::test {

// Every item at a column of its own, whatever type and attribute of the call:
//
//   2026/11/21 10:05:30 00:07:20 00:05 IS T001 0205 5551234567 004321
//   date       time     duration ring  kT from to   number     account
//
// Column 36 tells the kind (I incoming, O outgoing, X inter-extension, T inter-trunk), 37 the
// transfer (S start, E end).
inline ConfigBuilder FixedColumns() {
  ConfigBuilder layout;
  layout.Item(emParamFechaAnio, 1, 4).Item(emParamFechaMes, 6, 2).Item(emParamFechaDia, 9, 2);
  layout.Item(emParamFechaHoras, 12, 2).Item(emParamFechaMinutos, 15, 2);
  layout.Item(emParamFechaSegundos, 18, 2).Item(emParamDuracionHoras, 21, 2);
  layout.Item(emParamDuracionMinutos, 24, 2).Item(emParamDuracionSegundos, 27, 2);
  layout.Item(emParamRingMinutos, 30, 2).Item(emParamRingSegundos, 33, 2);
  layout.TextItem(emParamCodigoCuenta, 60, 6);
  const emParamDato phones[] = {emParamTelefonoEntrante,
                                emParamTelefonoEntranteInicioTransferida,
                                emParamTelefonoEntranteFinTransferida,
                                emParamTelefonoSaliente,
                                emParamTelefonoSalienteInicioTransferida,
                                emParamTelefonoSalienteFinTransferida,
                                emParamTelefonoInterExtension,
                                emParamTelefonoInterExtensionInicioTransferida,
                                emParamTelefonoInterExtensionFinTransferida,
                                emParamTelefonoInterTroncal,
                                emParamTelefonoInterTroncalInicioTransferida,
                                emParamTelefonoInterTroncalFinTransferida};
  for (const emParamDato kind : phones) layout.Item(kind, 49, 10);
  const emParamDato callers[] = {emParamTroncalEntrante,
                                 emParamTroncalEntranteInicioTransferida,
                                 emParamTroncalEntranteFinTransferida,
                                 emParamExtensionSaliente,
                                 emParamExtensionSalienteInicioTransferida,
                                 emParamExtensionSalienteFinTransferida,
                                 emParamExtension1InterExtension,
                                 emParamExtension1InterExtensionInicioTransferida,
                                 emParamExtension1InterExtensionFinTransferida,
                                 emParamTroncal1InterTroncal,
                                 emParamTroncal1InterTroncalInicioTransferida,
                                 emParamTroncal1InterTroncalFinTransferida};
  for (const emParamDato kind : callers) layout.TextItem(kind, 39, 4);
  const emParamDato callees[] = {emParamExtensionEntrante,
                                 emParamExtensionEntranteInicioTransferida,
                                 emParamExtensionEntranteFinTransferida,
                                 emParamTroncalSaliente,
                                 emParamTroncalSalienteInicioTransferida,
                                 emParamTroncalSalienteFinTransferida,
                                 emParamExtension2InterExtension,
                                 emParamExtension2InterExtensionInicioTransferida,
                                 emParamExtension2InterExtensionFinTransferida,
                                 emParamTroncal2InterTroncal,
                                 emParamTroncal2InterTroncalInicioTransferida,
                                 emParamTroncal2InterTroncalFinTransferida};
  for (const emParamDato kind : callees) layout.TextItem(kind, 44, 4);
  layout.Constant(emDatoCteIdentEntrante, 36, u"I").Constant(emDatoCteIdentSaliente, 36, u"O");
  layout.Constant(emDatoCteIdentInterExtension, 36, u"X");
  layout.Constant(emDatoCteIdentInterTroncal, 36, u"T");
  const emParamDatoConstante starts[] = {
      emDatoCteIdentEntranteInicioTransferida, emDatoCteIdentSalienteInicioTransferida,
      emDatoCteIdentInterExtensionInicioTransferida, emDatoCteIdentInterTroncalInicioTransferida};
  for (const emParamDatoConstante kind : starts) layout.Constant(kind, 37, u"S");
  const emParamDatoConstante ends[] = {
      emDatoCteIdentEntranteFinTransferida, emDatoCteIdentSalienteFinTransferida,
      emDatoCteIdentInterExtensionFinTransferida, emDatoCteIdentInterTroncalFinTransferida};
  for (const emParamDatoConstante kind : ends) layout.Constant(kind, 37, u"E");
  return layout;
}

// A line of FixedColumns.
struct FixedLine {
  Text date = u"2026/11/21";
  Text time = u"10:05:30";
  Text duration = u"00:07:20";
  Text ring = u"00:05";
  Text kind = u"I ";
  Text from = u"T001";
  Text to = u"0205";
  Text number = u"5551234567";
  Text account = u"004321";

  Text text() const {
    Text line;
    const auto add = [&](const Text& field, std::size_t width) {
      line += field;
      line.append(width + 1 - field.size(), u' ');
    };
    add(date, 10);
    add(time, 8);
    add(duration, 8);
    add(ring, 5);
    add(kind, 2);
    add(from, 4);
    add(to, 4);
    add(number, 10);
    return line + account;
  }
};

// The least of columns to see the rules of a Meridian's records by. A party that begins with T is a
// trunk: as origin it makes the call incoming, as terminal outgoing. Account codes stand where
// others have the digits.
inline ConfigBuilder MeridianColumns() {
  ConfigBuilder layout;
  layout.Case(emCasoNortelMeridian01);
  layout.Item(emParamFechaMes, 26, 2).Item(emParamFechaDia, 29, 2);
  layout.Item(emParamFechaHoras, 32, 2).Item(emParamFechaMinutos, 35, 2);
  layout.Item(emParamDuracionHoras, 38, 2).Item(emParamDuracionMinutos, 41, 2);
  layout.Item(emParamDuracionSegundos, 44, 2);
  layout.TextItem(emParamTroncalEntrante, 10, 7).TextItem(emParamExtensionEntrante, 18, 7);
  layout.TextItem(emParamExtensionSaliente, 10, 7).TextItem(emParamTroncalSaliente, 18, 7);
  layout.Item(emParamTelefonoEntrante, 47, 32).Item(emParamTelefonoSaliente, 47, 32);
  layout.Item(emParamCodigoCuenta, 47, 14);
  layout.Constant(emDatoCteIdentEntrante, 10, u"T").Constant(emDatoCteIdentSaliente, 18, u"T");
  return layout;
}

// The least of columns to see the rules of a Norstar's blocks by: the separator's date and parties,
// the event's elapsed time.
inline ConfigBuilder NorstarColumns() {
  ConfigBuilder layout;
  layout.Case(emCasoNortelNorstar0x32SMDR6);
  layout.Item(emParamFechaMes, 10, 2).Item(emParamFechaDia, 13, 2).Item(emParamFechaAnio, 16, 2);
  layout.Item(emParamFechaHoras, 19, 2).Item(emParamFechaMinutos, 22, 2);
  layout.Item(emParamFechaSegundos, 25, 2).Item(emParamDuracionHoras, 1, 2);
  layout.Item(emParamDuracionMinutos, 4, 2).Item(emParamDuracionSegundos, 7, 2);
  layout.TextItem(emParamTroncalSaliente, 35, 4).Item(emParamExtensionSaliente, 46, 7);
  return layout;
}

}  // namespace conmuta::test
