#include "capture/source.h"

namespace conmuta::capture {

void AwaitLastBytes(Loop& loop, std::function<bool()> came, std::function<void()> end, int rounds) {
  constexpr std::chrono::milliseconds kMoment{50};
  loop.After(kMoment, [&loop, came = std::move(came), end = std::move(end), rounds] {
    if (rounds > 0 && came()) return AwaitLastBytes(loop, came, end, rounds - 1);
    end();
  });
}

void Inlet::Take(std::string_view bytes) {
  cutter_.Take(bytes, [&](std::string line, Wholeness wholeness, std::size_t) {
    backlog_.Put(source_, std::move(line), wholeness, {}, can_wait_);
  });
}

void Inlet::End(Wholeness wholeness) {
  if (std::string rest = cutter_.TakeRest(); !rest.empty()) {
    backlog_.Put(source_, std::move(rest), wholeness, {}, can_wait_);
  }
}

std::unique_ptr<Source> MakeSource(const SourceContext& context) {
  switch (context.address.kind) {
    case Address::Kind::kSerial:
      return MakeSerialSource(context);
    case Address::Kind::kTcpClient:
      return MakeTcpClient(context);
    case Address::Kind::kTcpServer:
      return MakeTcpServer(context);
    case Address::Kind::kFile:
      return MakeFileSource(context);
    case Address::Kind::kStandardInput:
      break;
  }
  return MakeStandardInput(context);
}

}  // namespace conmuta::capture
