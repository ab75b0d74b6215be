#pragma once

#include <QString>
#include <array>

namespace orv::soak {

/// The last steps of a run, kept so that they can be printed while the program goes down.
class Ring {
 public:
  void add(const QString& step);
  /// Oldest first. Calls nothing that a dying program must not.
  void print() const;

 private:
  static constexpr size_t kept = 500;
  struct Line {
    std::array<char, 240> text;
    size_t size = 0;
  };
  std::array<Line, kept> m_lines;
  size_t m_next = 0;
};

/// That of this process, printed as well when the program is ended by a signal or a sanitizer.
Ring& ring();
void printRingAtEnd();

}  // namespace orv::soak
