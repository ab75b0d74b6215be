#include "tests/app/sweep/Sweep.h"

#include <QJsonDocument>
#include <algorithm>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

/// A refusal in the service's words.
QByteArray refusal(int status) {
  return R"({"title":"Not now","detail":"It is being checked.","status":)" + QByteArray::number(status) + "}";
}

}  // namespace

/// One life of a workspace up to the moment before the operation.
struct Sweep::Life {
  explicit Life(const SweepRow& row) : row(row) {
    row.arrive(stage);
    settle();
    stage.finish();
    stage.f.toasts.clear();
    stage.answers[row.request] = row.answer;
    before = stage.service.asked(row.request);
    shownBefore = shown();
  }

  void press() {
    row.press(stage);
    settle();
  }
  void steps(int n) {
    for (int i = 0; i < n; ++i) stage.step();
  }
  int sent() const { return stage.service.asked(row.request) - before; }
  bool waits() const { return stage.f.api.isWaiting(row.request); }
  bool isBusy() { return row.busy && row.busy(stage); }
  QVariant shown() { return row.shown ? row.shown(stage) : QVariant(); }
  int told() { return stage.told() + (row.error && !row.error(stage).isEmpty()); }

  const SweepRow& row;
  SweepStage stage;
  int before = 0;
  QVariant shownBefore;
};

void Sweep::say(const QString& what, const Life& life, const QString& problem) {
  m_problems.append(u"%1 / %2: %3 [%4]"_s.arg(m_row.name, what, problem, life.stage.messages().join(u"; "_s)));
}

QList<Sweep::Fault> Sweep::faults() const {
  const auto lost = [](TransportFailure why, bool sent) {
    return [why, sent](FakeTransport& api, const QString& label) { api.fail(label, NoAnswer(why, sent)); };
  };
  const auto says = [](int status, const QByteArray& body, const QList<QPair<QByteArray, QByteArray>>& headers = {}) {
    return [=](FakeTransport& api, const QString& label) { api.answer(label, body, status, headers); };
  };
  QList<Fault> faults{{u"offline"_s, lost(TransportFailure::offline, false)},
                      {u"refused connection"_s, lost(TransportFailure::unreachable, false)},
                      {u"timed out"_s, lost(TransportFailure::timedOut, true)},
                      {u"401"_s, says(401, {}), false},
                      {u"403"_s, says(403, refusal(403))},
                      {u"404"_s, says(404, refusal(404))},
                      {u"409"_s, says(409, refusal(409))},
                      {u"412"_s, says(412, refusal(412))},
                      {u"422, errors only"_s, says(422, R"({"errors":[{"path":"name","message":"Too long"}]})")},
                      {u"429"_s, says(429, {}, {{"Retry-After", "7"}})},
                      {u"500"_s, says(500, "<html><body>Oops</body></html>")}};
  if (m_row.answer.isEmpty()) return faults;
  faults.append({u"garbage"_s, says(200, QByteArray("\x1f\x8b\0\xff", 4))});
  faults.append({u"cut off"_s, says(200, m_row.answer.chopped(m_row.answer.size() / 2))});
  for (const QString& member : m_row.required) {
    QJsonObject object = QJsonDocument::fromJson(m_row.answer).object();
    if (!object.contains(member)) qFatal("%s has no %s", qPrintable(m_row.name), qPrintable(member));
    object.remove(member);
    faults.append({u"without "_s + member, says(200, written(object))});
  }
  return faults;
}

/// The person confirms and waits until the operation itself is asked of the service.
bool Sweep::reachesRequest(Life& life) const {
  for (int i = 0; i < 20 && !life.waits(); ++i)
    if (!life.stage.step(m_row.request)) break;
  return life.waits();
}

QStringList Sweep::run() {
  cleanRun();
  if (!m_problems.isEmpty()) return m_problems;
  std::vector<std::function<void()>> cases;
  for (const Fault& one : faults()) cases.emplace_back([this, one] { fault(one); });
  for (int n = 0; n < m_suspensions; ++n) {
    cases.emplace_back([this, n] { secondPress(n); });
    cases.emplace_back([this, n] { ownerGone(n); });
    cases.emplace_back([this, n] { signedOut(n); });
  }
  cases.emplace_back([this] { afterReload(); });
  cases.emplace_back([this] { afterSwitch(); });
  if (m_most < int(cases.size())) {
    // By the row's name as well, so that a row that comes or goes changes nothing about the others.
    std::ranges::shuffle(cases, std::mt19937(m_seed ^ quint32(qHash(m_row.name, 1))));
    cases.resize(size_t(m_most));
    m_isWhole = false;
  }
  for (const auto& one : cases) one();
  return m_problems;
}

void Sweep::cleanRun() {
  Life life(m_row);
  const QString what = u"clean run"_s;
  life.press();
  while (m_suspensions < 50 && life.stage.step()) ++m_suspensions;
  life.stage.finish();
  if (life.sent() != 1) say(what, life, u"sent %1 times"_s.arg(life.sent()));
  if (life.told() != 0) say(what, life, u"tells of a failure"_s);
  if (life.isBusy()) say(what, life, u"stays busy"_s);
  for (const QString& complaint : life.stage.complaints) say(what, life, complaint);
  m_shownAtEnd = life.shown();
}

void Sweep::fault(const Fault& fault) {
  Life life(m_row);
  life.press();
  if (!reachesRequest(life)) return say(fault.name, life, u"was not sent"_s);
  if (m_row.busy && !life.isBusy()) say(fault.name, life, u"is not busy while it waits"_s);
  fault.give(life.stage.f.api, m_row.request);
  life.stage.finish();
  if (life.sent() != 1) say(fault.name, life, u"sent %1 times"_s.arg(life.sent()));
  if (life.isBusy()) say(fault.name, life, u"stays busy"_s);
  // What the shell tells of may stand in a form behind the sign-in, but is not said again.
  const bool isRight = fault.isTold ? life.told() == 1 : life.stage.told() == 0;
  if (!isRight) say(fault.name, life, u"told %1 times"_s.arg(life.told()));
  if (life.shown() != life.shownBefore) say(fault.name, life, u"changed what is shown"_s);

  life.stage.f.toasts.clear();
  life.press();
  life.stage.finish();
  if (life.sent() != 2) say(fault.name, life, u"a second try is sent %1 times"_s.arg(life.sent() - 1));
  if (life.told() != 0) say(fault.name, life, u"a second try fails"_s);
  if (life.shown() != m_shownAtEnd) say(fault.name, life, u"a second try ends otherwise than the first would have"_s);
}

void Sweep::secondPress(int n) {
  if (m_row.reads) return;
  const QString what = u"pressed twice, suspension %1"_s.arg(n);
  Life life(m_row);
  life.press();
  life.steps(n);
  // Answered already: a second press is an operation of its own.
  if (life.sent() > 0 && !life.waits()) return;
  life.press();
  life.stage.finish();
  if (life.sent() != 1) say(what, life, u"sent %1 times"_s.arg(life.sent()));
  if (life.told() != 0) say(what, life, u"tells of a failure"_s);
  if (life.isBusy()) say(what, life, u"stays busy"_s);
}

void Sweep::ownerGone(int n) {
  const QString what = u"owner gone, suspension %1"_s.arg(n);
  Life life(m_row);
  life.press();
  life.steps(n);
  const int asked = life.stage.service.asked();
  // What is over by then has been told while somebody was there.
  const bool isOver = life.stage.f.jobs.running() == 0 && !life.waits();
  const bool isBegun = !life.stage.f.overlays.asking();
  life.stage.f.toasts.clear();
  life.stage.owner.reset();
  settle();
  if (m_row.isJob && isBegun) return jobOutlives(what, life, isOver ? 0 : 1);
  if (life.stage.f.overlays.asking()) say(what, life, u"its question stays"_s);
  if (const QString left = life.stage.service.waiting(); !left.isEmpty()) say(what, life, u"still asks "_s + left);
  life.stage.finish();
  if (life.stage.service.asked() != asked) say(what, life, u"goes on asking"_s);
  if (life.stage.f.context.use_count() != 1) say(what, life, u"something holds the workspace"_s);
}

void Sweep::jobOutlives(const QString& what, Life& life, int told) {
  life.stage.finish();
  if (life.sent() != 1) say(what, life, u"sent %1 times"_s.arg(life.sent()));
  if (life.stage.f.jobs.running() != 0) say(what, life, u"does not end"_s);
  if (life.stage.f.toasts.count() != told)
    say(what, life, u"its end is told %1 times"_s.arg(life.stage.f.toasts.count()));
  life.stage.f.jobs.clear();
  // The "Undo" of its message holds it as long as it is offered.
  life.stage.f.toasts.clear();
  settle();
  if (life.stage.f.context.use_count() != 1) say(what, life, u"something holds the workspace"_s);
}

void Sweep::signedOut(int n) {
  const QString what = u"signed out, suspension %1"_s.arg(n);
  Life life(m_row);
  life.press();
  life.steps(n);
  const int asked = life.stage.service.asked();
  life.stage.f.toasts.clear();
  life.stage.owner->close();
  life.stage.f.context->close();
  life.stage.f.jobs.clear();
  settle();
  life.stage.finish();
  if (life.stage.service.asked() != asked) say(what, life, u"goes on asking"_s);
  if (life.stage.f.toasts.count() != 0) say(what, life, u"says something"_s);
  if (life.isBusy()) say(what, life, u"stays busy"_s);
}

void Sweep::afterReload() {
  if (m_row.reads) return;
  const QString what = u"answered after a reload"_s;
  Life life(m_row);
  life.press();
  if (!reachesRequest(life)) return say(what, life, u"was not sent"_s);
  life.stage.owner->refresh();
  settle();
  life.stage.finish(m_row.request);
  if (!life.waits()) return say(what, life, u"the reload lets it go"_s);
  life.stage.finish();
  if (life.sent() != 1) say(what, life, u"sent %1 times"_s.arg(life.sent()));
  if (life.told() != 0) say(what, life, u"tells of a failure"_s);
  if (life.isBusy()) say(what, life, u"stays busy"_s);
  if (life.shown() != m_shownAtEnd) say(what, life, u"the answer is not what is shown"_s);
}

void Sweep::afterSwitch() {
  const QString what = u"answered after a switch of workspaces"_s;
  Life life(m_row);
  life.press();
  if (!reachesRequest(life)) return say(what, life, u"was not sent"_s);
  auto& navigator = life.stage.f.navigator;
  navigator.slug = u"other"_s;
  navigator.openItem(Page::campaigns, u"elsewhere"_s);
  life.stage.finish();
  if (navigator.slug != "other"_L1 || navigator.item != "elsewhere"_L1) say(what, life, u"fetches the person back"_s);
  if (life.told() != 0) say(what, life, u"tells of a failure"_s);
  if (life.isBusy()) say(what, life, u"stays busy"_s);
  if (life.shown() != m_shownAtEnd) say(what, life, u"the answer is lost"_s);
}

}  // namespace orv::test
