// Files that somebody looked at and approved: what a program makes must stay like them.
#pragma once

#include <string>

namespace conmuta::test {

// The approved file of that name, in tests/core/approved. With CONMUTA_APPROVE set in the
// environment, what was made takes its place first.
std::string Approved(const std::string& name, const std::string& made);

// Fails, naming the first line that differs. Numbers may differ by `tolerance`: processors round
// differently.
void ExpectLikeApproved(const std::string& name, const std::string& made, double tolerance);

}  // namespace conmuta::test
