// For the sources that wait for sockets and ports: costs seconds to compile.
#pragma once

#include <asio.hpp>

#include "capture/loop.h"

namespace conmuta::capture {

struct Loop::Inner {
  asio::io_context context{1};
  asio::signal_set signals{context};
};

}  // namespace conmuta::capture
