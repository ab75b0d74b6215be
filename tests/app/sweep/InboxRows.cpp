#include <QJsonArray>
#include <QJsonDocument>

#include "app/inbox/InboxStore.h"
#include "tests/app/sweep/SweepStage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::test {
namespace {

const auto list = u"GET /inbox/threads"_s, open = u"GET /inbox/threads/t1"_s, patch = u"PATCH /inbox/threads/t1"_s;

QJsonObject objectOf(const QByteArray& json) { return QJsonDocument::fromJson(json).object(); }

/// The conversation of the examples, read and with nothing decided.
QJsonObject thread(const QJsonObject& changed = {}) {
  QJsonObject one{{u"status"_s, u"open"_s}, {u"unread"_s, false}, {u"label"_s, u"interested"_s}};
  for (auto member = changed.begin(); member != changed.end(); ++member) one.insert(member.key(), member.value());
  return objectOf(sample(u"InboxThread"_s, one));
}

/// The inbox with what is written in it.
struct InboxOnShow final : Store {
  explicit InboxOnShow(WorkspaceContext& context) : Store(context) {}
  void refresh() override { inbox.refresh(); }
  void close() override {
    inbox.close();
    writings.close();
    Store::close();
  }
  Writings writings{context()};
  InboxStore inbox{context(), writings, nullptr, nullptr};
};

InboxStore& inbox(SweepStage& s) { return s.the<InboxOnShow>().inbox; }

void arrive(SweepStage& s) {
  const QJsonObject waiting = objectOf(
      sample(u"Draft"_s, {{u"approvedAt"_s, QJsonValue()}, {u"error"_s, QJsonValue()}, {u"status"_s, u"pending"_s}}));
  s.answers[list] = sample(u"ThreadPage"_s, {{u"items"_s, QJsonArray{thread()}}, {u"nextCursor"_s, QJsonValue()}});
  s.answers[open] = sample(u"ThreadDetail"_s, {{u"thread"_s, thread()}, {u"drafts"_s, QJsonArray{waiting}}});
  s.show<InboxOnShow>();
  inbox(s).appear();
  inbox(s).threads()->list()->appear();
  inbox(s).ensureLoaded();
  s.finish();
  inbox(s).open(u"t1"_s);
  inbox(s).conversation()->detail()->appear();
  s.finish();
}

/// What is shown of it all.
QVariant shown(SweepStage& s) {
  const Conversation* one = inbox(s).conversation();
  return QStringList{inbox(s).threads()->list()->shownIds().join(u' '), one ? one->label() : QString(),
                     one ? one->draftText() : QString(), one && one->reply() ? one->reply()->body() : QString()};
}

bool isBusy(SweepStage& s) { return !inbox(s).busyIds().isEmpty() || inbox(s).generating(); }

SweepRow onThread(const QString& name, const QString& request, const QByteArray& answer,
                  std::function<void(SweepStage&)> press) {
  return {name, arrive, std::move(press), request, answer, {u"id"_s}, isBusy, shown};
}

SweepRow reply() {
  SweepRow reply{u"InboxStore::send"_s,
                 [](SweepStage& s) {
                   arrive(s);
                   inbox(s).conversation()->reply()->setBody(u"Tuesday at ten."_s);
                 },
                 [](SweepStage& s) { inbox(s).send(); },
                 u"POST /inbox/threads/t1/reply"_s,
                 sample(u"ReplyAccepted"_s),
                 {u"draft"_s},
                 {},
                 shown};
  reply.busy = [](SweepStage& s) {
    const Conversation* one = inbox(s).conversation();
    return one && one->reply()->sending();
  };
  return reply;
}

}  // namespace

QList<SweepRow> inboxRows() {
  const SweepRow check{u"ThreadList::checkMail"_s,
                       arrive,
                       [](SweepStage& s) { inbox(s).threads()->checkMail(); },
                       u"POST /inbox/poll"_s,
                       {},
                       {},
                       [](SweepStage& s) { return inbox(s).threads()->polling(); },
                       shown};
  return {onThread(u"InboxStore, archive"_s, patch, written(thread({{u"status"_s, u"archived"_s}})),
                   [](SweepStage& s) { inbox(s).act(u"archive"_s, u"t1"_s); }),
          onThread(u"InboxStore, unread"_s, patch, written(thread({{u"unread"_s, true}})),
                   [](SweepStage& s) { inbox(s).act(u"unread"_s); }),
          onThread(u"InboxStore::setLabel"_s, patch, written(thread({{u"label"_s, u"not_now"_s}})),
                   [](SweepStage& s) { inbox(s).setLabel(u"not_now"_s); }),
          onThread(u"InboxStore, generate"_s, u"POST /inbox/threads/t1/draft"_s,
                   sample(u"Draft"_s, {{u"id"_s, u"d7"_s}, {u"body"_s, u"Another one"_s}}),
                   [](SweepStage& s) { inbox(s).act(u"generate"_s); }),
          reply(),
          check};
}

}  // namespace orv::test
