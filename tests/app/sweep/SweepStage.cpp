#include "tests/app/sweep/SweepStage.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QThreadPool>

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

const QJsonObject& samples() {
  static const QJsonObject all = QJsonDocument::fromJson(readFixture(u"records.json"_s)).object();
  return all;
}

}  // namespace

QByteArray written(const QJsonObject& object) { return QJsonDocument(object).toJson(QJsonDocument::Compact); }

QByteArray sample(const QString& record, const QJsonObject& changed) {
  QJsonObject object = samples().value(record).toObject();
  if (object.isEmpty()) qFatal("No example of %s", qPrintable(record));
  for (auto member = changed.begin(); member != changed.end(); ++member) object.insert(member.key(), member.value());
  return written(object);
}

QString failureOf(const ResourceBase& resource) {
  return resource.stateName() == ResourceBase::State::Offline ? u"offline"_s : resource.message();
}

namespace {

/// What the service says of an untouched workspace.
const std::map<QString, QByteArray>& untouched() {
  static const std::map<QString, QByteArray> answers = [] {
    QJsonObject listed = samples().value("CampaignList"_L1).toObject().value("items"_L1).toArray().first().toObject();
    listed.remove(u"archivedAt"_s);
    QJsonObject second = listed;
    second.insert(u"id"_s, u"c2"_s);
    second.insert(u"name"_s, u"Second"_s);
    return std::map<QString, QByteArray>{
        {u"GET /campaigns"_s, sample(u"CampaignList"_s, {{u"items"_s, QJsonArray{listed, second}}})},
        {u"GET /campaigns/c1"_s, sample(u"Campaign"_s)},
        {u"GET /campaigns/c1/leads"_s, sample(u"LeadPage"_s, {{u"nextCursor"_s, QJsonValue()}})},
        {u"GET /campaigns/c1/leads/l1"_s, sample(u"LeadDetail"_s)},
        {u"GET /campaigns/c1/subsequences"_s, sample(u"SubsequenceList"_s)},
        {u"GET /campaigns/c1/messages"_s, sample(u"MessagePage"_s)},
        {u"GET /campaigns/c1/activity"_s, sample(u"FeedPage"_s)},
        {u"POST /campaigns/c1/preview"_s, sample(u"PreviewResponse"_s)},
        {u"GET /reply-labels"_s, sample(u"ReplyLabelList"_s)},
        {u"GET /tags"_s, sample(u"TagList"_s)},
        {u"GET /mailboxes"_s, sample(u"MailboxPage"_s, {{u"nextCursor"_s, QJsonValue()}})},
        {u"GET /lead-lists"_s, sample(u"LeadListPage"_s)},
        {u"GET /analytics/summary"_s, sample(u"AnalyticsSummary"_s)},
        {u"GET /analytics/overview"_s, sample(u"AnalyticsOverview"_s)},
    };
  }();
  return answers;
}

}  // namespace

SweepStage::SweepStage() : answers(untouched()) {
  f.context = std::make_shared<WorkspaceContext>(f.context->workspace(), QString(), service, f.services, [] {});
}

SweepStage::~SweepStage() {
  owner.reset();
  // One that has ended still holds the workspace.
  f.jobs.clear();
  settle();
  f.context.reset();
}

bool SweepStage::step(const QString& held) {
  if (f.overlays.asking()) {
    f.overlays.answer(f.overlays.token(), true);
    settle();
    return true;
  }
  const QString label = service.waiting(held);
  if (label.isEmpty()) return endBackground();
  const auto known = answers.find(label);
  if (known == answers.end()) complaints.append(u"the stage has no answer to "_s + label);
  f.api.answer(label, known == answers.end() ? QByteArray("{}") : known->second);
  return true;
}

/// What is read or written in the background has its end, too. True when something is asked for it.
bool SweepStage::endBackground() {
  const int before = service.asked();
  settle();
  QThreadPool::globalInstance()->waitForDone();
  settle();
  return service.asked() > before;
}

void SweepStage::finish(const QString& held) {
  for (int steps = 0; step(held); ++steps) {
    if (steps < 100) continue;
    complaints.append(u"asks without end: "_s + service.waiting());
    return;
  }
}

int SweepStage::told() const {
  int errors = 0;
  for (const auto& toast : f.toasts.toasts()) errors += toast.tone == Toasts::Tone::error;
  return errors;
}

QStringList SweepStage::messages() const {
  QStringList messages;
  for (const auto& toast : f.toasts.toasts())
    messages.append(toast.message + (toast.detail.isEmpty() ? QString() : u" / "_s + toast.detail));
  return messages;
}

}  // namespace orv::test
