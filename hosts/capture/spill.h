// Lines that the store does not take at present, kept until it does.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "capture/database.h"
#include "capture/received.h"

namespace conmuta::capture {

// Everything throws StoreError.
class Spill {
 public:
  // Of each source lines up to the number in `taken` are done with, whether they are there or not.
  // kInUse while another capture spills lines of one of the sources there.
  Spill(std::vector<std::string> sources, std::vector<std::int64_t> taken,
        std::unique_ptr<Database> database);

  // All of them or none; those that are there already change nothing, others in their places are
  // a StoreError.
  void Add(std::span<const Arrival> lines);

  // At most so many, those of one source in the order of their numbers.
  std::vector<Arrival> First(std::size_t count);
  // The first ones are done with: they do not come again, even where their room cannot be given
  // back now.
  void Take(std::span<const Arrival> lines);
  const std::vector<std::int64_t>& taken() const { return taken_; }

  // Of the sources that are known here, without those that are done with.
  std::int64_t count() const { return count_; }
  // The line of a source with the highest number that was there at the beginning; number 0 when
  // there was none.
  const Received& Last(std::size_t source) const { return ends_[source].numbered; }
  // The same of those without a number of their own; kUnnumbered when there was none.
  std::int64_t LastUnnumbered(std::size_t source) const { return ends_[source].unnumbered; }
  // All lines of a source without a number of their own get one, `shift` more than they had.
  void Number(std::size_t source, std::int64_t shift);

 private:
  template <class Work>
  void InTransaction(Work work);

  bool Holds(const Arrival& arrival);

  struct Ends {
    Received numbered;
    std::int64_t unnumbered = kUnnumbered;
  };
  void FindEnds();

  std::vector<std::string> names_;
  std::vector<std::int64_t> taken_;
  std::unique_ptr<Database> database_;
  std::unique_ptr<Statement> add_, same_, first_, remove_;
  std::vector<Ends> ends_;
  std::int64_t count_ = 0;
};

}  // namespace conmuta::capture
