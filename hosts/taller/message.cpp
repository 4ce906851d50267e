#include "taller/message.h"

#include <algorithm>
#include <iterator>

#include "platform/unicode.h"

namespace conmuta::taller {

Message MessageOf(const layouts::Mistake& mistake) {
  Message message{mistake.item, mistake.place, mistake.what};
  if (!mistake.allowed.empty()) message.text += u" (" + mistake.allowed + u")";
  return message;
}

Messages MessagesOf(const std::vector<layouts::Mistake>& mistakes) {
  Messages messages;
  std::transform(mistakes.begin(), mistakes.end(), std::back_inserter(messages),
                 [](const layouts::Mistake& mistake) { return MessageOf(mistake); });
  return messages;
}

Message MessageOf(std::string_view sentence) {
  return {{}, {}, FromUtf8(sentence)};
}

}  // namespace conmuta::taller
