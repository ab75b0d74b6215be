#pragma once

#include "tests/app/sweep/SweepStage.h"

namespace orv::test {

/// Runs one operation through everything that may happen to it. Gives a line for each thing that did not hold: what was
/// done to the operation, at which suspension, and what came of it.
class Sweep {
 public:
  /// Of what may happen no more than `most` things are tried, which the seed picks; another run tries others.
  Sweep(const SweepRow& row, int most, quint32 seed) : m_row(row), m_most(most), m_seed(seed) {}
  QStringList run();
  /// Nothing was left out.
  bool isWhole() const { return m_isWhole; }

 private:
  struct Fault {
    QString name;
    std::function<void(FakeTransport&, const QString& label)> give;
    /// The shell tells of an ended session.
    bool isTold = true;
  };
  struct Life;
  class Report;

  QList<Fault> faults() const;
  void cleanRun();
  void fault(const Fault& fault);
  void secondPress(int n);
  void ownerGone(int n);
  void jobOutlives(const QString& what, Life& life, int told);
  void signedOut(int n);
  void afterReload();
  void afterSwitch();
  bool reachesRequest(Life& life) const;
  void say(const QString& what, const Life& life, const QString& problem);

  const SweepRow& m_row;
  int m_most;
  quint32 m_seed;
  bool m_isWhole = true;
  QStringList m_problems;
  /// Counted by the clean run.
  int m_suspensions = 0;
  QVariant m_shownAtEnd;
};

}  // namespace orv::test
