// Which layouts of the catalogue a capture could be of, found in the background.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "taller/capture_bytes.h"
#include "taller/document.h"

namespace conmuta::taller {

struct Guess {
  std::string name;  // in the catalogue
  Text title;        // "Panasonic, KX-TD1232"
  double score;      // 0 to 1
  std::uint64_t calls;
  std::uint64_t lines;        // that have a digit
  std::uint64_t implausible;  // calls

  // "29 de 53 líneas, 2 dudosas"
  Text Sentence() const;
};

// No call waits, but the destructor for the layout that is being tried: milliseconds.
class Guesses {
 public:
  // `told` is called by the thread that works whenever there is something new; it must not ask for
  // anything here.
  explicit Guesses(std::function<void()> told);
  ~Guesses();
  Guesses(const Guesses&) = delete;
  Guesses& operator=(const Guesses&) = delete;

  // Ranks the catalogue for the first lines of a capture, and gives up what is being done.
  void Rank(std::shared_ptr<const CaptureBytes> bytes);
  // Gives up what is being done; what is known stays.
  void Stop();

  // Best first, without those that explain nothing; of the layouts that were tried so far.
  std::vector<Guess> guesses() const;
  struct Progress {
    std::size_t tried = 0;
    std::size_t of = 0;
    bool is_done = true;
  };
  Progress progress() const;

 private:
  void Work();
  void TryAll(std::size_t ranking, const CaptureBytes& bytes);

  const std::function<void()> told_;
  mutable std::mutex mutex_;
  std::condition_variable wake_;
  std::shared_ptr<const CaptureBytes> bytes_;  // of what is to be begun
  std::size_t ranking_ = 0;                    // that counts
  bool ends_ = false;
  Progress progress_;
  std::vector<Guess> guesses_;

  std::thread thread_;  // last: it uses all of the above
};

// Puts the layout of that name in the place of the document's, as one step.
[[nodiscard]] Messages Take(Document& document, const std::string& name);

}  // namespace conmuta::taller
