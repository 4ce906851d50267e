#include "translate/cases/norstar.h"

#include <algorithm>
#include <array>

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

}  // namespace

template <class Watch>
bool Norstar::Translate(Work<Watch>& work) {
  LineReader<Watch>& line = work.line;
  if (line.line().starts_with(kSeparator)) return OpenBlock(work);
  if (!block_is_open_) {
    line.watch().Because(NoCall::kOutsideBlock);
    return true;
  }
  if (line.line().size() < kPrefixLength) return line.Check(LineError::kInvalidArgument);

  const TextView text = line.line().substr(kPrefixLength);
  switch (EventOf(text)) {
    case Event::kTransferred:
      if (!line.ReadDurationTime(block_call_)) return false;
      block_call_.Atributos(block_call_.Atributos() != emSinAtributo ? emAtributoEnTransferencia
                                                                     : emAtributoIniTransferida);
      Deliver(work.call);
      work.Park();
      return true;
    case Event::kCallReleased:
      if (!line.ReadDurationTime(block_call_)) return false;
      if (block_call_.Atributos() == emAtributoEnTransferencia) {
        block_call_.Atributos(emAtributoFinTransferida);
      }
      Deliver(work.call);
      return true;
    case Event::kIncomingCall:
      SwapParties();
      break;
    case Event::kFromTransfer:
      if (!TakeUpTransfer(work.pending)) line.watch().Because(NoCall::kTransferNotFound);
      break;
    case Event::kDigitsDialed:
      if (block_call_.TipoLlamada() == emLlamadaSaliente && text.size() >= kDialedColumn) {
        block_call_.Telefono(DigitsOf{text.substr(kDialedColumn - 1)});
      }
      break;
    case Event::kRestrictionPassword:
      if (text.size() >= kPasswordColumn) {
        block_call_.CodigoCuenta(DigitsOf{text.substr(kPasswordColumn - 1)});
      }
      break;
    case Event::kNone:
      break;
  }
  line.watch().Because(NoCall::kPartOfBlock);
  return true;
}

CONMUTA_TRANSLATION(Norstar);

template <class Watch>
bool Norstar::OpenBlock(Work<Watch>& work) {
  work.call.CopiaLlamada(block_call_);  // a block that ended without an end is delivered now
  if (!work.call.EsValido()) work.line.watch().Because(NoCall::kBlockBegins);
  block_call_.Inicializa();
  if (!work.line.ReadStart(block_call_)) return false;
  block_call_.TipoLlamada(emLlamadaSaliente);
  block_call_.Atributos(emSinAtributo);
  // Hosts rely on the parties being read with the attribute of the call delivered before.
  if (!work.line.ReadParties(block_call_, work.call.Atributos())) return false;
  block_is_open_ = true;
  return true;
}

void Norstar::Deliver(clsLlamadaTRD& call) {
  call.CopiaLlamada(block_call_);
  block_call_.Inicializa();
  block_is_open_ = false;
}

// The separator was read as that of an outgoing call.
void Norstar::SwapParties() {
  const BoundedText<10> trunk = block_call_.Receptor();
  block_call_.Receptor(block_call_.Emisor());
  block_call_.Emisor(trunk);
  block_call_.TipoLlamada(emLlamadaEntrante);
}

// Goes on with the parked call of this trunk; without one the block is given up.
bool Norstar::TakeUpTransfer(PendingCalls& pending) {
  const std::int16_t slot = pending.Find(block_call_.Receptor());
  if (slot == 0) return block_is_open_ = false;
  const BoundedText<10> extension = block_call_.TipoLlamada() == emLlamadaEntrante
                                        ? block_call_.Receptor()
                                        : block_call_.Emisor();
  block_call_.CopiaLlamada(pending[slot]);
  pending.Free(slot);
  if (block_call_.TipoLlamada() == emLlamadaEntrante) {
    block_call_.Receptor(extension);
  } else {
    block_call_.Emisor(extension);
  }
  block_call_.Atributos(emAtributoEnTransferencia);
  return true;
}

}  // namespace conmuta
