// Our windows while there is no memory for them: they go, with all that they had, and say so.
#include <gtest/gtest.h>

#include "window_hosts.h"

namespace conmuta::test {
namespace {

TEST(WindowsWithoutMemory, Report) {
  RunRounds(Supply::kMemory, "report", [] { return std::make_unique<ReportHost>(); });
}

TEST(WindowsWithoutMemory, CallReport) {
  RunRounds(Supply::kMemory, "call report", [] { return std::make_unique<CallReportHost>(); });
}

TEST(WindowsWithoutMemory, CableEditor) {
  RunRounds(Supply::kMemory, "cable editor", [] { return std::make_unique<CableHost>(); });
}

TEST(WindowsWithoutMemory, Manager) {
  RunRounds(Supply::kMemory, "manager", [] { return std::make_unique<ManagerHost>(); });
}

}  // namespace
}  // namespace conmuta::test
