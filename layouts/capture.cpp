#include "layouts/capture.h"

#include <algorithm>
#include <array>

#include "layouts/findings.h"
#include "layouts/host_line.h"
#include "layouts/numbers.h"
#include "platform/unicode.h"

namespace conmuta::layouts {
namespace {

constexpr std::array<TextView, 5> kKeys = {u"conmutador", u"fecha", u"velocidad", u"trama",
                                           u"fuente"};

// Data bits, parity, stop bits.
bool IsFraming(TextView text) {
  return text.size() == 3 && text[0] >= u'5' && text[0] <= u'8' &&
         TextView(u"NEOMS").find(text[1]) != TextView::npos && (text[2] == u'1' || text[2] == u'2');
}

class HeadReader {
 public:
  HeadReader(Capture& capture, Findings& findings) : capture_(capture), findings_(findings) {}

  void Read(TextView line, int number) {
    const Place place{number, 1};
    const std::size_t colon = line.find(u": ");
    if (!line.starts_with(u"# ") || colon == TextView::npos) {
      findings_.Add(MistakeKind::kSyntax, place, {}, u"no es «# clave: valor»");
      return;
    }
    const TextView key = line.substr(2, colon - 2);
    const TextView value = Trim(line.substr(colon + 2));
    const auto row = std::find(kKeys.begin(), kKeys.end(), key);
    if (row == kKeys.end()) return findings_.AddUnknown(place, {}, key, kKeys);
    bool& given = given_[static_cast<std::size_t>(row - kKeys.begin())];
    if (given && key != u"fuente") {
      findings_.Add(MistakeKind::kGivenTwice, place, key, u"se da dos veces");
    }
    given = true;
    Store(key, value, place);
  }

  void FindMissing() {
    for (std::size_t i = 0; i < kKeys.size(); ++i) {
      if (!given_[i]) findings_.Add(MistakeKind::kMissing, {}, kKeys[i], u"falta");
    }
  }

 private:
  void Store(TextView key, TextView value, Place place) {
    const auto refuse = [&](TextView what) {
      findings_.Add(MistakeKind::kOutOfRange, place, key,
                    Text(u"«").append(value).append(u"» ").append(what));
    };
    if (value.empty()) {
      findings_.Add(MistakeKind::kEmpty, place, key, u"está vacío");
    } else if (key == u"conmutador") {
      capture_.switch_name = value;
    } else if (key == u"fecha") {
      const auto date = ReadDate(value);
      if (!date) return refuse(u"no es una fecha como 2019-01-16");
      capture_.date = *date;
    } else if (key == u"velocidad") {
      const auto speed = ReadDigitsOnly(value);
      if (!speed || *speed == 0) return refuse(u"no es una velocidad en bits por segundo");
      capture_.speed = *speed;
    } else if (key == u"trama") {
      if (!IsFraming(value)) return refuse(u"no es una trama como 8N1");
      capture_.framing = value;
    } else {
      capture_.sources.emplace_back(value);
    }
  }

  Capture& capture_;
  Findings& findings_;
  std::array<bool, kKeys.size()> given_{};
};

}  // namespace

CaptureReading ReadCapture(std::string_view bytes, TextView file) {
  Findings findings(file);
  Capture capture;
  HeadReader head(capture, findings);
  bool in_head = true;
  int number = 0;
  const auto take = [&](std::string_view line) {
    ++number;
    Text text = FromUtf8(line);
    in_head = in_head && text.starts_with(u'#');
    if (in_head) {
      head.Read(text, number);
    } else {
      capture.lines.push_back({number, std::move(text)});
    }
  };
  HostLines lines;
  lines.Take(bytes, take);
  if (!lines.rest().empty()) take(lines.rest());
  head.FindMissing();

  CaptureReading reading;
  reading.mistakes = findings.Take();
  SortByPlace(reading.mistakes);
  if (reading.mistakes.empty()) reading.capture = std::move(capture);
  return reading;
}

}  // namespace conmuta::layouts
