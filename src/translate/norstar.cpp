// Nortel Norstar: a block of lines a call. A separator line opens the block and tells when and
// between whom; event lines follow, each text behind a prefix that may hold the elapsed time.
#include <algorithm>
#include <array>
#include <optional>

#include "translate/clsTradEST.h"

namespace conmuta {
namespace {

constexpr TextView kSeparator = u"--------";
constexpr std::size_t kPrefixLength = 11;

enum class Event {
  kNone,
  kTransferred,
  kIncomingCall,
  kFromTransfer,
  kCallReleased,
  kDigitsDialed,
  kRestrictionPassword,
};

struct Keyword {
  TextView text;
  Event event;
};

// The first keyword that an event begins with decides.
constexpr std::array<Keyword, 11> kVocabulary = {{
    {u"HOLD", Event::kNone},
    {u"LINE", Event::kNone},
    {u"UNHOLD", Event::kNone},
    {u"NO ANSWER", Event::kNone},
    {u"TRANSFERRED", Event::kTransferred},
    {u"OUTGOING CALL", Event::kNone},
    {u"INCOMING CALL", Event::kIncomingCall},
    {u"FROM TRANSFER", Event::kFromTransfer},
    {u"CALL RELEASED", Event::kCallReleased},
    {u"DIGITS DIALED", Event::kDigitsDialed},
    {u"RESTRICTION PASSWORD", Event::kRestrictionPassword},
}};

Event EventOf(TextView text) {
  const auto keyword = std::find_if(kVocabulary.begin(), kVocabulary.end(),
                                    [&](const Keyword& k) { return text.starts_with(k.text); });
  return keyword != kVocabulary.end() ? keyword->event : Event::kNone;
}

// Where the digits of these events begin, 1-based.
constexpr std::size_t kDialedColumn = 18;
constexpr std::size_t kPasswordColumn = 22;

// The digits of the text from a column on; nothing when it ends before.
std::optional<TextView> DigitsFrom(TextView text, std::size_t column,
                                   basConmuta::FieldBuffer& buffer) {
  if (text.size() < column) return std::nullopt;
  return basConmuta::DigitsOf(text.substr(column - 1), buffer);
}

}  // namespace

void clsTradEST::TraduceNortelNorstar0x32SMDR6() {
  LineReader reader = ReadLine();
  const TextView line = line_;
  if (line.starts_with(kSeparator)) return OpenNorstarBlock(reader);
  if (!block_is_open_) return;
  if (line.size() < kPrefixLength) throw InvalidArgumentError();

  const TextView text = line.substr(kPrefixLength);
  basConmuta::FieldBuffer buffer;
  switch (EventOf(text)) {
    case Event::kTransferred:
      reader.ReadDurationTime(block_call_);
      block_call_.Atributos(block_call_.Atributos() != emSinAtributo ? emAtributoEnTransferencia
                                                                     : emAtributoIniTransferida);
      EmitNorstarCall();
      AltaLlamadaLista();
      break;
    case Event::kIncomingCall: {
      // The separator was read as that of an outgoing call.
      const BoundedText<10> trunk = block_call_.Receptor();
      block_call_.Receptor(block_call_.Emisor());
      block_call_.Emisor(trunk);
      block_call_.TipoLlamada(emLlamadaEntrante);
      break;
    }
    case Event::kFromTransfer:
      TakeUpNorstarTransfer();
      break;
    case Event::kCallReleased:
      reader.ReadDurationTime(block_call_);
      if (block_call_.Atributos() == emAtributoEnTransferencia) {
        block_call_.Atributos(emAtributoFinTransferida);
      }
      EmitNorstarCall();
      break;
    case Event::kDigitsDialed:
      if (block_call_.TipoLlamada() != emLlamadaSaliente) break;
      if (const auto digits = DigitsFrom(text, kDialedColumn, buffer)) {
        block_call_.Telefono(*digits);
      }
      break;
    case Event::kRestrictionPassword:
      if (const auto digits = DigitsFrom(text, kPasswordColumn, buffer)) {
        block_call_.CodigoCuenta(*digits);
      }
      break;
    case Event::kNone:
      break;
  }
}

void clsTradEST::OpenNorstarBlock(LineReader& reader) {
  call_.CopiaLlamada(block_call_);  // a block that ended without an end is delivered now
  block_call_.Inicializa();
  reader.ReadStart(block_call_);
  block_call_.TipoLlamada(emLlamadaSaliente);
  block_call_.Atributos(emSinAtributo);
  // Hosts rely on the parties being read with the attribute of the call delivered before.
  reader.ReadParties(block_call_, call_.Atributos());
  block_is_open_ = true;
}

void clsTradEST::EmitNorstarCall() {
  call_.CopiaLlamada(block_call_);
  block_call_.Inicializa();
  block_is_open_ = false;
}

void clsTradEST::TakeUpNorstarTransfer() {
  const std::int16_t slot = BuscaLlamadaTroncalLista(block_call_.Receptor());
  if (slot == 0) {
    block_is_open_ = false;
    return;
  }
  const BoundedText<10> extension = block_call_.TipoLlamada() == emLlamadaEntrante
                                        ? block_call_.Receptor()
                                        : block_call_.Emisor();
  block_call_.CopiaLlamada(pending_[slot]);
  QuitaLlamadaLista(slot);
  if (block_call_.TipoLlamada() == emLlamadaEntrante) {
    block_call_.Receptor(extension);
  } else {
    block_call_.Emisor(extension);
  }
  block_call_.Atributos(emAtributoEnTransferencia);
}

}  // namespace conmuta
