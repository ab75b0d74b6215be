#pragma once

#include <QJsonObject>
#include <map>

#include "app/base/Resource.h"
#include "tests/support/AppFixture.h"

namespace orv::test {

/// Expects whatever is asked, and remembers in which order.
class OpenTransport final : public APITransport {
 public:
  explicit OpenTransport(FakeTransport& fake) : m_fake(fake) {}
  std::unique_ptr<Exchange> exchange(APICall call, std::shared_ptr<AnswerReceiver> receiver) override {
    m_asked.append(call.request.label());
    m_fake.expect(m_asked.last());
    return m_fake.exchange(std::move(call), std::move(receiver));
  }
  int asked(const QString& label) const { return int(m_asked.count(label)); }
  int asked() const { return int(m_asked.size()); }
  /// The oldest request that waits for an answer, another one than `held`.
  QString waiting(const QString& held = {}) const {
    for (const QString& label : m_asked)
      if (label != held && m_fake.isWaiting(label)) return label;
    return {};
  }

 private:
  FakeTransport& m_fake;
  QStringList m_asked;
};

/// A workspace with one store on show and a service that knows an answer to everything.
class SweepStage {
 public:
  SweepStage();
  ~SweepStage();

  template <class S, class... Args>
  S& show(Args&&... args) {
    auto made = std::make_unique<S>(std::forward<Args>(args)..., *f.context);
    S& store = *made;
    owner = std::move(made);
    return store;
  }
  template <class S>
  S& the() {
    return static_cast<S&>(*owner);
  }

  /// What the service says when asked so.
  std::map<QString, QByteArray> answers;
  QStringList complaints;

  /// One thing that somebody waits for happens: a question is answered with its verb, a request by the service. False
  /// when nobody waits for anything, but for the request that is held back.
  bool step(const QString& held = {});
  void finish(const QString& held = {});
  /// Messages of failures.
  int told() const;
  QStringList messages() const;

  AppFixture f;
  OpenTransport service{f.api};
  /// The page's store, with all its parts.
  std::unique_ptr<Store> owner;

 private:
  bool endBackground();
};

/// The example of a record in the fixtures, with some members changed.
QByteArray sample(const QString& record, const QJsonObject& changed = {});
QByteArray written(const QJsonObject& object);

/// What a page shows in place of what could not be read.
QString failureOf(const ResourceBase& resource);

/// One operation of a store. It names what it does and nothing else; what must hold is the same for all.
struct SweepRow {
  /// "CampaignsStore::pause"; after a comma what is special about this way of it.
  QString name;
  std::function<void(SweepStage&)> arrive;
  /// As the person does it. What was typed before stands in arrive(), so that a second press finds it kept.
  std::function<void(SweepStage&)> press;
  QString request;
  /// Empty where there is nothing to read in it.
  QByteArray answer;
  /// Members without which the answer cannot be read.
  QStringList required;
  std::function<bool(SweepStage&)> busy;
  /// What the page shows of what this is about: a failure leaves it alone.
  std::function<QVariant(SweepStage&)> shown;
  /// Where a form or a page tells the failure itself.
  std::function<QString(SweepStage&)> error = {};
  /// Only reads: asked again, it lets go of what it asked before.
  bool reads = false;
  /// Once nobody is asked any more it goes on when its store has gone, and tells its end: mostly a job does it.
  bool isJob = false;

  QString operation() const { return name.section(u',', 0, 0); }
};

QList<SweepRow> accountPageRows();
QList<SweepRow> accountRows();
QList<SweepRow> campaignListRows();
QList<SweepRow> campaignPageRows();
QList<SweepRow> campaignLeadRows();
QList<SweepRow> figureRows();
QList<SweepRow> inboxRows();
QList<SweepRow> inboxReviewRows();
QList<SweepRow> leadListRows();
QList<SweepRow> leadSearchRows();
QList<SweepRow> rampupRows();
QList<SweepRow> settingsRows();
QList<SweepRow> setupRows();

}  // namespace orv::test
