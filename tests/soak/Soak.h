#pragma once

#include <QTemporaryDir>

#include "desktop/services/Turns.h"
#include "kit/async/ManualClock.h"
#include "tests/soak/Hand.h"
#include "tests/soak/SoakService.h"

namespace orv::soak {

struct SoakPlan {
  quint64 seed = 1;
  /// How long the person goes on, in the machine's time and in theirs.
  std::chrono::milliseconds real{60'000};
  std::chrono::milliseconds simulated = std::chrono::hours(1);
  double faults = 0.04;
  /// Pages are compared with the service; otherwise the run ends well when nothing breaks, hangs or grows.
  bool compares = true;
  /// After each quarter, tells what asked for the memory in use; only a sanitized build knows.
  bool tellsHolders = false;
};

/// A person who presses whatever there is for an hour, while the service fails them. Four times in it, all goes well
/// for a moment, and what every page shows must then be what the service holds:
///
/// - after "Refresh" on every page. What was lost of answers, the client cannot know by itself;
/// - and again after a while without faults in which nothing but the person changes anything. By itself, now.
class Soak {
 public:
  explicit Soak(const SoakPlan& plan);

  /// True when nothing was found; otherwise all of it has been printed.
  bool run();

 private:
  /// The machine's time that one step is given: answers come within it, or during the next.
  static constexpr std::chrono::milliseconds beat{2};

  void restless(std::chrono::milliseconds real, std::chrono::milliseconds simulated);
  void calm(int presses);
  void step();
  void trouble();
  void mend();
  void pass(std::chrono::milliseconds time, bool serviceToo);
  void pump(std::chrono::milliseconds time);
  /// Until nothing is under way, nor begins within the client's next seconds.
  void rest(std::chrono::milliseconds quiet);
  void comeBack();
  void compare(const QString& when, bool refreshing);
  QStringList differencesNow(bool refreshing, std::optional<Page> only);
  /// A change behind the client's back must be found, or nothing else that is not found says anything.
  void proveComparison();
  bool openTheirs(SoakClient& client);
  void measure();
  /// Lets go of all that nothing but the person's presses has brought.
  void settle(SoakClient& client);
  /// By choice, and without what is not saved.
  void signOut();
  void judge();
  void fail(const QString& what);
  QStringList makeFiles();

  SoakPlan m_plan;
  QTemporaryDir m_folder;
  demo::DemoRandom m_random;
  SoakService m_service;
  ManualClock m_clock;
  Turns m_turns;
  std::unique_ptr<SoakClient> m_client;
  std::unique_ptr<SoakClient> m_other;
  std::unique_ptr<Hand> m_hand;
  std::chrono::milliseconds m_passed{0};
  bool m_isDown = false, m_isHeld = false;
  int m_pressed = 0, m_troubles = 0, m_requests = 0, m_compared = 0;
  qsizetype m_fields = 0;
  QList<qint64> m_heap, m_resident;
  /// What a client that has just been started has in use for the same pages.
  QList<qint64> m_fresh;
  /// What stays when nobody is signed in any more.
  QList<qint64> m_left;
  QStringList m_failures;
};

}  // namespace orv::soak
