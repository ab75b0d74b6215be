#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTest>

#include "app/inbox/InboxStore.h"
#include "tests/support/AppFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto list = u"GET /inbox/threads"_s, labels = u"GET /reply-labels"_s, campaigns = u"GET /campaigns"_s;
QString get(int n) { return u"GET /inbox/threads/t%1"_s.arg(n); }
QString patch(int n) { return u"PATCH /inbox/threads/t%1"_s.arg(n); }
QString reply(int n) { return u"POST /inbox/threads/t%1/reply"_s.arg(n); }
QString id(int n) { return u"t%1"_s.arg(n); }

QJsonObject threadOf(int n, const QJsonObject& more = {}) {
  QJsonObject object{{u"id"_s, id(n)},
                     {u"mailboxId"_s, u"m1"_s},
                     {u"mailboxAddress"_s, u"ellen@a.example"_s},
                     {u"contactAddress"_s, u"c%1@b.example"_s.arg(n)},
                     {u"contactName"_s, u"Contact %1"_s.arg(n)},
                     {u"subject"_s, u"Re: Q%1"_s.arg(n)},
                     {u"kind"_s, u"reply"_s},
                     {u"status"_s, u"open"_s},
                     {u"unread"_s, true},
                     {u"messageCount"_s, 1},
                     {u"pendingDrafts"_s, 0},
                     {u"lastMessageAt"_s, u"2026-11-20T09:00:00Z"_s},
                     {u"followupsSent"_s, 0},
                     {u"humanTookOver"_s, false},
                     {u"createdAt"_s, u"2026-11-19T09:00:00Z"_s}};
  for (auto member = more.begin(); member != more.end(); ++member) object.insert(member.key(), member.value());
  return object;
}

QJsonObject draft(const QString& draftId, int n, const QString& body, const QString& status = u"pending"_s) {
  QJsonObject object{
      {u"id"_s, draftId}, {u"threadId"_s, id(n)}, {u"kind"_s, u"reply"_s}, {u"body"_s, body}, {u"status"_s, status}};
  if (status != "pending"_L1) object.insert(u"approvedAt"_s, u"2026-11-20T10:00:00Z"_s);
  return object;
}

QByteArray json(const QJsonObject& object) { return QJsonDocument(object).toJson(QJsonDocument::Compact); }

QByteArray page(const QJsonArray& items, const QString& next = {}) {
  QJsonObject page{{u"items"_s, items},
                   {u"counts"_s, QJsonObject{{u"total"_s, 10}, {u"unread"_s, 5}, {u"drafts"_s, 2}}}};
  if (!next.isEmpty()) page.insert(u"nextCursor"_s, next);
  return json(page);
}

QByteArray detailOf(const QJsonObject& thread, const QJsonArray& drafts = {}, const QJsonArray& more = {}) {
  QJsonArray messages{QJsonObject{{u"id"_s, u"m-"_s + thread.value(u"id"_s).toString()},
                                  {u"direction"_s, u"inbound"_s},
                                  {u"state"_s, u"received"_s},
                                  {u"body"_s, u"Yes.\n\nEllen wrote:\n> Shall we?"_s},
                                  {u"kind"_s, u"reply"_s},
                                  {u"at"_s, u"2026-11-20T09:00:00Z"_s}}};
  for (const auto& message : more) messages.append(message);
  return json({{u"thread"_s, thread}, {u"messages"_s, messages}, {u"drafts"_s, drafts}});
}

class FakeDesk final : public Store, public DraftDesk {
 public:
  explicit FakeDesk(WorkspaceContext& context) : Store(context) {}
  void approve(const ReviewDraft& item) override { approved.append(item); }
  void skip(const ReviewDraft& item) override { skipped.append(item.draft.id); }
  bool isDeciding(const QString&) const override { return false; }
  QList<ReviewDraft> approved;
  QStringList skipped;
};

}  // namespace

class ConversationsTest : public QObject {
  Q_OBJECT

  struct Life {
    AppFixture f;
    Writings writings{*f.context};
    FakeDesk desk{*f.context};
    std::unique_ptr<InboxStore> store = std::make_unique<InboxStore>(*f.context, writings, &desk, nullptr);
    QAbstractItemModelTester tester{store->threads()->list()->rows(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest};
  };
  std::unique_ptr<Life> life;
  AppFixture* f = nullptr;
  InboxStore* store = nullptr;

  QStringList shown() const { return store->threads()->list()->shownIds(); }
  QJsonObject body() const { return QJsonDocument::fromJson(*f->api.last().request.body).object(); }
  QString toast() const { return f->toasts.count() ? f->toasts.toasts().last().message : QString(); }
  int asked(const QString& label) const {
    int count = 0;
    for (const APICall& call : f->api.sent()) count += call.request.label() == label;
    return count;
  }
  /// Of the last request.
  QString query() const {
    QStringList items;
    for (const QueryItem& item : f->api.last().request.query)
      items.append(item.name + u'=' + item.value.value_or(QString()));
    return items.join(u'&');
  }
  bool isUnread(int n) const { return store->threads()->rows().isUnread(*store->threads()->find(id(n))); }
  void look() {
    store->appear();
    store->threads()->list()->appear();
    f->navigator.open(Page::inbox);
  }
  void load(const QByteArray& first = page({threadOf(1), threadOf(2), threadOf(3)})) {
    for (const QString& label : {list, labels, campaigns}) f->api.expect(label);
    store->ensureLoaded();
    f->api.answer(labels, R"({"items":[{"key":"warm","name":"Warm","tone":"positive"}]})");
    f->api.answer(campaigns, R"({"items":[]})");
    f->api.answer(list, first);
  }
  /// With its reading, and that of the next one.
  void open(int n, const QByteArray& answer, int ahead = 0) {
    f->api.expect(get(n));
    store->open(id(n));
    if (ahead) f->api.expect(get(ahead));
    f->api.answer(get(n), answer);
    if (ahead) f->api.answer(get(ahead), detailOf(threadOf(ahead, {{u"unread"_s, false}})));
  }
  /// One that needs no marking, with nothing behind it in the list.
  void openLast(const QJsonArray& drafts = {}) {
    open(3, detailOf(threadOf(3, {{u"unread"_s, false}, {u"pendingDrafts"_s, drafts.size()}}), drafts));
  }

 private Q_SLOTS:
  void init() {
    life = std::make_unique<Life>();
    f = &life->f;
    store = life->store.get();
    look();
  }
  void cleanup() { life.reset(); }

  void filtersAreAskedFor() {
    load();
    auto& threads = *store->threads();
    const auto asksFor = [&](const QString& expected) {
      QCOMPARE(query(), expected);
      f->api.answer(list, page({}));
    };
    f->api.expect(list);
    threads.setTab(u"unread"_s);
    f->api.expect(list);
    threads.setMailbox(u"m7"_s);
    asksFor(u"limit=50&mailbox=m7&unread=1"_s);
    f->api.expect(list);
    threads.showAll();
    f->api.expect(list);
    threads.setLabel(u"drafts"_s);
    f->api.expect(list);
    threads.setTab(u"all"_s);
    asksFor(u"limit=50&drafts=1"_s);
    QVERIFY(threads.filtered());
    // Blanks ask for nothing, and what is typed waits for its end.
    threads.setQuery(u"  "_s);
    f->clock.advance(1s);
    threads.setQuery(u"  Jon"_s);
    threads.setQuery(u"  Jonas "_s);
    f->api.expect(list);
    f->clock.advance(250ms);
    asksFor(u"limit=50&q=Jonas&drafts=1"_s);
    QCOMPARE(store->where().value, u"  Jonas "_s);
  }

  void anOpenConversationIsRead() {
    load();
    QCOMPARE(f->context->unread(), std::optional<qint64>(5));
    f->api.expect(get(1));
    store->open(id(1));
    // At once, before anybody has answered; the list knows the rest.
    QVERIFY(!isUnread(1));
    QCOMPARE(store->threads()->unreadCount(), 4);
    QCOMPARE(f->context->unread(), std::optional<qint64>(4));
    QCOMPARE(store->conversation()->contact(), u"Contact 1"_s);
    QCOMPARE(f->navigator.openedItem(Page::inbox), id(1));
    f->api.expect(patch(1));
    f->api.expect(get(2));
    f->api.answer(get(1), detailOf(threadOf(1)));
    QCOMPARE(*f->api.sent()[f->api.sent().size() - 2].request.body, R"({"unread":false})");
    f->api.answer(patch(1), json(threadOf(1, {{u"unread"_s, false}})));
    QVERIFY(!store->threads()->find(id(1))->unread);
    QCOMPARE(store->threads()->unreadCount(), 4);

    // The next one was read ahead, as unread: now it is looked at. Nothing of it has to be waited for.
    f->api.answer(get(2), detailOf(threadOf(2)));
    QVERIFY(isUnread(2));
    f->api.expect(patch(2));
    f->api.expect(get(3));
    store->step(1);
    QCOMPARE(store->openId(), id(2));
    QVERIFY(store->conversation()->detail()->hasContent());
    f->api.answer(patch(2), json(threadOf(2, {{u"unread"_s, false}})));
    // Nothing to mark where the service has done so.
    f->api.answer(get(3), detailOf(threadOf(3, {{u"unread"_s, false}})));
    store->step(1);
    QCOMPARE(asked(patch(3)), 0);
    QCOMPARE(f->context->unread(), std::optional<qint64>(2));
  }

  void whatCannotBeMarkedReadIsUnreadAgain() {
    load();
    open(3, detailOf(threadOf(3, {{u"unread"_s, false}})));
    f->api.expect(get(1));
    store->open(id(1));
    f->api.expect(patch(1));
    f->api.answer(get(1), detailOf(threadOf(1)));
    f->api.fail(patch(1), NoAnswer(TransportFailure::offline, false));
    QVERIFY(isUnread(1));
    QCOMPARE(f->toasts.count(), 0);
  }

  void markedUnreadStaysUnread() {
    load();
    openLast();
    f->api.expect(patch(3));
    store->act(u"unread"_s);
    QCOMPARE(body(), (QJsonObject{{u"unread"_s, true}}));
    f->api.answer(patch(3), json(threadOf(3)));
    QCOMPARE(toast(), u"Marked unread"_s);
    QVERIFY(isUnread(3));
    // Its next reading does not make it read.
    f->api.expect(get(3));
    store->conversation()->refresh();
    f->api.answer(get(3), detailOf(threadOf(3)));
    QVERIFY(isUnread(3));
    QCOMPARE(asked(patch(3)), 1);
  }

  void archivingGoesOnToTheNext() {
    load();
    open(1, detailOf(threadOf(1, {{u"unread"_s, false}})), 2);
    f->api.expect(patch(1));
    f->api.expect(get(3));
    store->act(u"archive"_s);
    QCOMPARE(store->openId(), id(2));
    settle();
    QCOMPARE(shown(), (QStringList{id(2), id(3)}));
    // Pressed again before the answer, it is the next one's turn.
    f->api.expect(patch(2));
    store->act(u"archive"_s);
    QCOMPARE(store->openId(), id(3));
    f->api.answer(patch(1), json(threadOf(1, {{u"status"_s, u"archived"_s}, {u"unread"_s, false}})));
    QCOMPARE(toast(), u"Archived"_s);
    QCOMPARE(store->threads()->tabs().first().count, 9);
    // One that fails comes back where it was.
    f->api.answer(patch(2), R"({"title":"No"})", 422);
    settle();
    QCOMPARE(shown(), (QStringList{id(2), id(3)}));
    QCOMPARE(toast(), u"Couldn’t archive the conversation."_s);

    f->api.expect(patch(1));
    f->toasts.act(f->toasts.toasts().first().id);
    QCOMPARE(body(), (QJsonObject{{u"status"_s, u"open"_s}}));
    f->api.expect(list);
    f->api.answer(patch(1), json(threadOf(1, {{u"unread"_s, false}})));
    settle();
    QCOMPARE(shown(), (QStringList{id(1), id(2), id(3)}));
    QCOMPARE(toast(), u"Moved back to the inbox"_s);
  }

  void theArchiveGivesBack() {
    load();
    f->api.expect(list);
    store->threads()->setTab(u"archived"_s);
    f->api.answer(list, page({threadOf(7, {{u"status"_s, u"archived"_s}, {u"unread"_s, false}})}));
    QCOMPARE(store->menu(id(7)).first().title, u"Move to inbox"_s);
    f->api.expect(patch(7));
    store->act(u"archive"_s, id(7));
    QCOMPARE(body(), (QJsonObject{{u"status"_s, u"open"_s}}));
    f->api.answer(patch(7), json(threadOf(7, {{u"unread"_s, false}})));
    settle();
    QCOMPARE(shown(), QStringList());
    QCOMPARE(toast(), u"Moved back to the inbox"_s);
  }

  void labelsAreSetAndCleared() {
    load();
    openLast();
    QCOMPARE(store->threads()->labelsToSet().last().label, u"Warm"_s);
    f->api.expect(patch(3));
    store->setLabel(u"warm"_s);
    QCOMPARE(body(), (QJsonObject{{u"label"_s, u"warm"_s}}));
    f->api.answer(patch(3), json(threadOf(3, {{u"label"_s, u"warm"_s}, {u"unread"_s, false}})));
    QCOMPARE(toast(), u"Labelled Warm"_s);
    QCOMPARE(store->conversation()->labelTone(), u"positive"_s);
    f->api.expect(patch(3));
    store->setLabel({});
    QCOMPARE(body(), (QJsonObject{{u"label"_s, QJsonValue::Null}}));
    f->api.answer(patch(3), json(threadOf(3, {{u"unread"_s, false}})));
    QCOMPARE(toast(), u"Label cleared"_s);
    QCOMPARE(store->conversation()->label(), QString());
  }

  void aReplyGoesOutOnce() {
    load();
    openLast();
    store->act(u"reply"_s);
    Writing& writing = *store->conversation()->reply();
    writing.setBody(u"Tuesday at ten."_s);
    writing.setCc(u"a@x.example, nobody"_s);
    QVERIFY(!store->act(u"send"_s));
    QCOMPARE(writing.ccProblem(), u"“nobody” is not an email address"_s);
    writing.setCc(u"a@x.example, b@y.example"_s);
    f->api.expect(reply(3));
    QVERIFY(store->act(u"send"_s));
    QVERIFY(!store->act(u"send"_s));
    QCOMPARE(body(), (QJsonObject{{u"body"_s, u"Tuesday at ten."_s},
                                  {u"cc"_s, QJsonArray{u"a@x.example"_s, u"b@y.example"_s}}}));
    f->api.answer(reply(3),
                  json({{u"draft"_s, draft(u"d9"_s, 3, u"Tuesday at ten."_s, u"approved"_s)}, {u"jobId"_s, u"j"_s}}));
    QCOMPARE(toast(), u"Sending to Contact 3 from ellen@a.example"_s);
    QCOMPARE(writing.body(), QString());
    QVERIFY(!store->conversation()->replying());
    QCOMPARE(store->conversation()->outgoing(), QStringList{u"Sending to Contact 3"_s});
  }

  void aRefusedReplyKeepsItsText() {
    load();
    openLast();
    Writing& writing = *store->conversation()->reply();
    writing.setBody(u"Mine."_s);
    f->api.expect(reply(3));
    store->send();
    f->api.answer(reply(3), R"({"title":"Too large"})", 422);
    QCOMPARE(toast(), u"Couldn’t send."_s);
    QCOMPARE(writing.body(), u"Mine."_s);
    QVERIFY(!writing.uncertain());
    QVERIFY(writing.canSend());
  }

  void anUnknownEndIsLookedUpFirst_data() {
    QTest::addColumn<bool>("arrived");
    QTest::newRow("arrived") << true;
    QTest::newRow("lost") << false;
  }
  void anUnknownEndIsLookedUpFirst() {
    QFETCH(bool, arrived);
    load();
    openLast();
    Writing& writing = *store->conversation()->reply();
    writing.setBody(u"Mine."_s);
    f->api.expect(reply(3));
    store->send();
    f->api.expect(list);
    f->api.fail(reply(3), NoAnswer(TransportFailure::timedOut, true));
    QVERIFY(writing.uncertain());
    QCOMPARE(writing.body(), u"Mine."_s);
    f->api.answer(list, page({threadOf(1), threadOf(2), threadOf(3, {{u"unread"_s, false}})}));

    f->api.expect(get(3));
    store->send();
    QVERIFY(!writing.canSend());
    const QJsonArray drafts = arrived ? QJsonArray{draft(u"d9"_s, 3, u"Mine.\n"_s, u"approved"_s)} : QJsonArray();
    if (!arrived) f->api.expect(reply(3));
    f->api.answer(get(3), detailOf(threadOf(3, {{u"unread"_s, false}}), drafts));
    QCOMPARE(asked(reply(3)), arrived ? 1 : 2);
    QCOMPARE(writing.body(), arrived ? QString() : u"Mine."_s);
    if (arrived) QCOMPARE(toast(), u"Your reply had been sent already."_s);
    if (!arrived) f->api.answer(reply(3), R"({"title":"No"})", 422);
    QVERIFY(!writing.uncertain());
  }

  void besideADraftItAsksFirst() {
    load();
    openLast({draft(u"d1"_s, 3, u"Hi"_s)});
    QVERIFY(store->conversation()->hasDraft());
    store->conversation()->reply()->setBody(u"Mine."_s);
    store->send();
    QCOMPARE(f->overlays.title(), u"Reply anyway?"_s);
    QCOMPARE(f->overlays.confirmLabel(), u"Send email"_s);
    f->overlays.answer(f->overlays.token(), false);
    QCOMPARE(store->conversation()->reply()->body(), u"Mine."_s);
    store->send();
    f->api.expect(reply(3));
    f->overlays.answer(f->overlays.token(), true);
    QVERIFY(store->conversation()->reply()->sending());
  }

  void textsAreKeptByThread() {
    f->journal.open({u"u1"_s, {}});
    settle();
    load();
    open(1, detailOf(threadOf(1, {{u"unread"_s, false}})), 2);
    store->act(u"reply"_s);
    store->conversation()->reply()->setBody(u"To the first"_s);
    f->api.expect(get(3));
    store->step(1);
    store->conversation()->reply()->setBody(u"To the second"_s);
    store->step(-1);
    QCOMPARE(store->conversation()->reply()->body(), u"To the first"_s);
    QVERIFY(store->threads()->rows().isWritten(id(2)));
    QCOMPARE(life->writings.unsavedWork(),
             (QStringList{u"Your reply to Contact 1 was not sent."_s, u"Your reply to Contact 2 was not sent."_s}));
    f->clock.advance(1s);

    // The next run.
    Writings later(*f->context);
    Writing* restored = later.reply(id(2), u"Contact 2"_s);
    settle();
    QCOMPARE(restored->body(), u"To the second"_s);
    QVERIFY(!restored->recovery()->notice().isEmpty());
    restored->discard();
    QCOMPARE(f->journal.entries().size(), 1);
  }

  void draftsAreDecidedAtTheDesk() {
    load();
    openLast({draft(u"d1"_s, 3, u"Hi"_s)});
    Conversation& open = *store->conversation();
    QCOMPARE(open.draftTitle(), u"The AI’s draft, ready for you."_s);
    QVERIFY(store->act(u"edit"_s));
    open.edit()->setBody(u"Hello"_s);
    QVERIFY(store->act(u"approve"_s));
    QCOMPARE(life->desk.approved.first().thread.id, id(3));
    QCOMPARE(life->writings.editOf(life->desk.approved.first().draft), std::optional(u"Hello"_s));
    QVERIFY(store->act(u"skip"_s));
    QCOMPARE(life->desk.skipped, QStringList{u"d1"_s});
    // The decision's answer takes the draft away, and the thread is read again.
    open.detail()->appear();
    f->api.expect(get(3));
    Draft decided = *open.draft();
    decided.status = u"approved"_s;
    f->context->changes().publish(decided, f->context->changes().stamp(), true);
    QVERIFY(!open.hasDraft());
    open.detail()->disappear();
  }

  void anotherDraftIsAskedFor() {
    load();
    openLast({draft(u"d1"_s, 3, u"Hi"_s)});
    const auto ask = u"POST /inbox/threads/t3/draft"_s;
    store->conversation()->edit()->setBody(u"Hi there"_s);
    QVERIFY(store->act(u"generate"_s));
    QCOMPARE(f->overlays.text(), u"Your edit of this draft is discarded."_s);
    f->api.expect(ask);
    f->overlays.answer(f->overlays.token(), true);
    QVERIFY(store->generating());
    QVERIFY(!store->act(u"generate"_s));
    f->api.answer(ask, json(draft(u"d2"_s, 3, u"Dear Contact"_s)));
    QVERIFY(!store->generating());
    QCOMPARE(store->conversation()->draftText(), u"Dear Contact"_s);
    QVERIFY(life->writings.unsavedWork().isEmpty());
  }

  void newMailIsTold() {
    load();
    auto& threads = *store->threads();
    Q_EMIT f->context->mailCame();
    QVERIFY(threads.newMail());
    f->api.expect(list);
    threads.showNewMail();
    QVERIFY(!threads.newMail());
    f->api.answer(list, page({threadOf(9), threadOf(1), threadOf(2), threadOf(3)}));
    QCOMPARE(shown().first(), id(9));

    f->api.expect(u"POST /inbox/poll"_s);
    threads.checkMail();
    threads.checkMail();
    QVERIFY(threads.polling());
    QCOMPARE(toast(), u"Checking every mailbox now…"_s);
    f->api.expect(list);
    f->api.answer(u"POST /inbox/poll"_s, {}, 204);
    settle();
    QVERIFY(!threads.polling());
    QCOMPARE(threads.syncedAt(), f->clock.now());
  }

  void newThreadsPushTheOthersDown() {
    QJsonArray first, second;
    for (int n = 1; n <= 50; ++n) first.append(threadOf(n));
    for (int n = 51; n <= 60; ++n) second.append(threadOf(n));
    load(page(first, u"second"_s));
    f->api.expect(list);
    store->threads()->list()->loadMore();
    QCOMPARE(query(), u"limit=50&cursor=second"_s);
    f->api.answer(list, page(second));
    QCOMPARE(shown().size(), 60);
    store->threads()->list()->see(0, 7);
    QJsonArray fresh;
    for (int n = 101; n <= 150; ++n) fresh.append(threadOf(n));
    f->api.expect(list);
    store->threads()->refresh();
    f->api.answer(list, page(fresh, u"pushed"_s));
    // What was there waits below, for nobody knows that it has gone.
    QCOMPARE(shown().size(), 110);
    QCOMPARE(shown().indexOf(id(1)), 50);
  }

  void theListSpeaksForWhatIsKept() {
    load();
    open(1, detailOf(threadOf(1, {{u"unread"_s, false}})), 2);
    store->conversation()->detail()->appear();
    // A message came: the conversation is read again by itself.
    f->api.expect(list);
    store->threads()->refresh();
    f->api.expect(get(1));
    f->api.answer(list, page({threadOf(1, {{u"messageCount"_s, 2}, {u"unread"_s, false}}), threadOf(2), threadOf(3)}));
    QCOMPARE(asked(get(1)), 2);
    store->conversation()->detail()->disappear();
  }

  void quotationsOpenOnDemand() {
    load();
    openLast();
    Conversation& open = *store->conversation();
    const auto parts = [&] {
      QStringList parts;
      for (const MessageRow& row : open.messages()->records()) parts.append(row.part);
      return parts.join(u' ');
    };
    QCOMPARE(parts(), u"head text fold"_s);
    open.fold(open.messages()->records().back().foldId);
    QCOMPARE(parts(), u"head text fold quote"_s);
    QCOMPARE(open.messages()->records().back().text, u"Ellen wrote:\n> Shall we?"_s);
  }

  void sectionsHaveTheirPlace() {
    load();
    openLast();
    QSignalSpy moved(store, &Store::moved);
    store->setSection(u"drafts"_s);
    QCOMPARE(moved.count(), 1);
    QCOMPARE(store->where().tab, u"drafts"_s);
    QCOMPARE(f->navigator.openedItem(Page::inbox), QString());
    // Every key stays offered, though not all can be used.
    QStringList keys;
    for (const PageAction& action : static_cast<Store*>(store)->actions())
      if (!action.keys.isEmpty()) keys.append(action.keys);
    for (const QString& key : {u"J"_s, u"K"_s, u"E"_s, u"U"_s, u"R"_s, u"L"_s, u"Ctrl+Return"_s, u"F5"_s})
      QCOMPARE(keys.count(key), 1);
    QVERIFY(!store->act(u"archive"_s));
    store->setSection(u"agent"_s);
    QCOMPARE(store->sectionName(), u"drafts"_s);
    store->showRecord(id(3));
    QCOMPARE(store->sectionName(), u"conversations"_s);
    QCOMPARE(f->navigator.openedItem(Page::inbox), id(3));
  }

  void whoMayNotWriteOnlyReads() {
    WorkspaceSummary workspace = f->context->workspace();
    workspace.role = Role(u"viewer"_s);
    f->context->setWorkspace(workspace);
    load();
    f->api.expect(get(3));
    store->open(id(3));
    f->api.answer(get(3), detailOf(threadOf(3), {draft(u"d1"_s, 3, u"Hi"_s)}));
    QCOMPARE(asked(patch(3)), 0);
    for (const QString& key : {u"archive"_s, u"unread"_s, u"reply"_s, u"approve"_s, u"generate"_s, u"check"_s})
      QVERIFY2(!store->act(key), qPrintable(key));
    store->send();
    store->setLabel(u"warm"_s);
  }

  void theContactKeepsItsWidth() {
    QCOMPARE(store->leadsWidth(), 0);
    store->setLeadsWidth(900);
    QCOMPARE(store->leadsWidth(), InboxStore::mostLeadsWidth);
    store->setLeadsWidth(300);
    QCOMPARE(f->preferences.leadsWidth, 300);
  }

  void linksGoToTheBrowser() {
    f->browser.works = false;
    store->openLink(u"https://a.example/"_s);
    QCOMPARE(f->browser.opened, QList<QUrl>{QUrl(u"https://a.example/"_s)});
    QCOMPARE(toast(), u"Couldn’t open the link."_s);
  }
};

QTEST_GUILESS_MAIN(ConversationsTest)
#include "conversations_test.moc"
