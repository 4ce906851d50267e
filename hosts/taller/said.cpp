#include "taller/said.h"

namespace conmuta::taller {

Text Said(const Messages& messages) {
  Text said;
  for (const Message& message : messages) {
    if (!said.empty()) said += u" ";
    if (!message.item.empty()) said += message.item + u": ";
    said += message.text;
  }
  return said;
}

}  // namespace conmuta::taller
