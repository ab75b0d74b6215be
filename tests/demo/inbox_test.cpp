#include <QTest>

#include "kit/api/PlatformDate.h"
#include "kit/models/inbox/draftRequests.h"
#include "kit/models/inbox/draftReview.h"
#include "kit/models/inbox/inboxRequests.h"
#include "kit/models/inbox/inboxWords.h"
#include "kit/models/inbox/setterRequests.h"
#include "kit/models/inbox/setterSettings.h"
#include "kit/models/inbox/setterTraining.h"
#include "kit/models/inbox/threadDetail.h"
#include "kit/models/inbox/threadFilter.h"
#include "kit/models/labels.h"
#include "kit/models/leads/leadRequests.h"
#include "kit/models/leads/leadSearch.h"
#include "tests/demo/DemoFixture.h"

using namespace orv;
using namespace orv::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

class DemoInboxTest : public QObject {
  Q_OBJECT

  std::unique_ptr<DemoFixture> f;

  ThreadPage page(const ThreadFilter& filter = {}, const std::optional<QString>& cursor = {}) {
    return f->ask(Requests::listThreads(filter, cursor));
  }
  QList<InboxThread> all(const ThreadFilter& filter = {}) {
    QList<InboxThread> threads;
    std::optional<QString> cursor;
    do {
      const ThreadPage one = page(filter, cursor);
      threads += one.items;
      cursor = one.nextCursor;
    } while (cursor);
    return threads;
  }
  ThreadDetail get(const QString& id) { return f->ask(Requests::getThread(id)); }
  QList<ReviewDraft> drafts(QLatin1String status = words::draftPending) {
    return f->ask(Requests::listDrafts(status)).items;
  }
  Draft firstWaiting() {
    const auto waiting = drafts();
    const auto found = std::ranges::find_if(waiting, [](const ReviewDraft& one) { return !one.draft.isHeld(); });
    if (found == waiting.end()) qFatal("The sample has no such draft");
    return found->draft;
  }
  SetterTraining record() { return f->ask(Requests::setterTraining()); }
  DraftTraining learned(const QString& id) {
    f->clock.advance(5s);
    return f->ask(Requests::draftTraining(id));
  }

 private Q_SLOTS:
  void init() { f = std::make_unique<DemoFixture>(); }
  void cleanup() { f.reset(); }

  void countsAgreeWithTheList() {
    const auto threads = all();
    const auto counts = *page().counts;
    QCOMPARE(counts.total, threads.size());
    QCOMPARE(counts.unread, all({.tab = ThreadFilter::Tab::unread}).size());
    QCOMPARE(counts.drafts, all({.label = ThreadFilter::drafts}).size());
    qint64 labelled = 0, inMailboxes = 0;
    for (const auto& [label, count] : counts.byLabel->asKeyValueRange()) {
      QCOMPARE(count, all({.label = label}).size());
      labelled += count;
    }
    for (const auto& mailbox : *counts.byMailbox) {
      QCOMPARE(mailbox.n, all({.mailbox = mailbox.id}).size());
      inMailboxes += mailbox.n;
    }
    QCOMPARE(labelled, threads.size());
    QCOMPARE(inMailboxes, threads.size());
    QVERIFY(counts.unread > 5 && counts.drafts > 5 && counts.byLabel->contains(ThreadFilter::unlabelled));
    QVERIFY(!all({.tab = ThreadFilter::Tab::archived}).isEmpty());
    const auto unread = f->ask(Requests::unreadCounts());
    QCOMPARE(unread.workspaces.first().unread, counts.unread);
    QVERIFY2(unread.workspaces.at(1).unread > 0, "another workspace has mail as well");
    const auto newest = std::ranges::max_element(threads, {}, &InboxThread::lastInboundAt);
    QCOMPARE(unread.workspaces.first().latestAt, newest->lastInboundAt);
  }

  void pagesLeaveNobodyOutWhileMailComes() {
    f = std::make_unique<DemoFixture>(1, demo::DemoScale{.threads = 220});
    const ThreadPage first = page();
    QCOMPARE(first.items.size(), 50);
    QVERIFY(std::ranges::is_sorted(first.items, std::greater(), &InboxThread::lastMessageAt));
    f->service.bringReply(f->slug, u"interested"_s);
    const ThreadPage second = page({}, first.nextCursor);
    QVERIFY(second.items.first().lastMessageAt <= first.items.last().lastMessageAt);
    QSet<QString> ids;
    for (const InboxThread& thread : all()) ids.insert(thread.id);
    QCOMPARE(ids.size(), page().counts->total);
  }

  void whoAnswersIsSomebodyWhomTheWorkspaceHas() {
    const auto owned = [this] { return f->ask(Requests::leadPools(LeadSearch())).used; };
    const auto before = owned();
    QSet<QString> people;
    for (const InboxThread& thread : all()) people.insert(thread.contactAddress);
    for (int i = 0; i < 3; ++i) {
      const QString address = get(f->service.bringReply(f->slug, {})).thread.contactAddress;
      QVERIFY2(!people.contains(address), "somebody who has not answered yet comes first");
      people.insert(address);
    }
    QCOMPARE(owned(), before);
  }

  void aThreadIsChangedAndChangedBack() {
    const InboxThread thread = page().items.first();
    ThreadPatch patch;
    patch.status = words::threadArchived;
    patch.unread = true;
    const InboxThread archived = f->ask(Requests::updateThread(thread.id, patch));
    QVERIFY(archived.isArchived() && archived.unread);
    QVERIFY(!std::ranges::count(all(), thread.id, &InboxThread::id));
    QVERIFY(std::ranges::count(all({.tab = ThreadFilter::Tab::archived}), thread.id, &InboxThread::id));
    f->ask(Requests::updateThread(thread.id, {.label = Clearable<QString>(u"call_back"_s), .status = u"open"_s}));
    QCOMPARE(all({.label = u"call_back"_s}).first().label->rawValue, u"call_back"_s);
    f->ask(Requests::updateThread(thread.id, {.label = Clearable<QString>::cleared()}));
    QVERIFY(!get(thread.id).thread.label);
    QCOMPARE(f->refusalCode(Requests::updateThread(thread.id, {.status = u"burnt"_s})), u"invalid_input"_s);
    QCOMPARE(f->refusalCode(Requests::getThread(u"th_none"_s)), u"not_found"_s);
    const auto own = replyLabels(f->ask(Requests::listReplyLabels()).items);
    QVERIFY(own.size() > ThreadLabel::known().size());
  }

  void whatIsWrittenFits() {
    QHash<QString, QString> answers;
    for (const ReviewDraft& waiting : drafts()) {
      const ThreadDetail thread = get(waiting.draft.threadId);
      const QString subject = thread.thread.subject;
      // What strangers send has subjects of its own.
      if (!thread.thread.campaignId || !thread.messages.first().subject || subject.contains(u'<')) continue;
      const InboxMessage& asked = thread.messages.last();
      const InboxMessage& ours = thread.messages[thread.messages.size() - 2];
      if (thread.messages.size() > 6 || subject.contains("endless"_L1)) continue;
      QCOMPARE(subject, ours.subject->startsWith("Re: "_L1) ? *ours.subject : u"Re: "_s + *ours.subject);
      QVERIFY2(!ours.body.contains(u'{') && !asked.body.contains("{name}"_L1), qPrintable(ours.body));
      QVERIFY2(ours.body.count(u'\n') > 4, "an email of several lines");
      // The same question has the same answer, another one another.
      const QString question = asked.body.section(u"\n\n"_s, 0, 0);
      const QString answer = waiting.draft.body.section(u"\n\n"_s, 1, 1);
      if (answers.contains(question)) QCOMPARE(answers[question], answer);
      answers.insert(question, answer);
    }
    QVERIFY(answers.size() > 3);
    QStringList different = answers.values();
    different.removeDuplicates();
    QCOMPARE(different.size(), answers.size());
  }

  void strangersAreInTheSample() {
    qsizetype longest = 0, most = 0;
    bool html = false, silent = false;
    for (const InboxThread& thread : all()) {
      const auto messages = get(thread.id).messages;
      most = std::max(most, messages.size());
      for (const InboxMessage& message : messages) {
        longest = std::max(longest, message.body.toUtf8().size());
        html |= message.html.has_value();
        silent |= message.body.isEmpty();
      }
    }
    QVERIFY2(longest > 1'000'000 && most >= 500, qPrintable(u"%1 %2"_s.arg(longest).arg(most)));
    QVERIFY(html && silent);
  }

  void aReplyGoesOutWhenItsTimeHasCome() {
    const Draft waiting = firstWaiting();
    const qint64 before = get(waiting.threadId).messages.size();
    const auto accepted =
        f->ask(Requests::replyToThread(waiting.threadId, {u"By hand"_s, QList{u"c@a.example"_s}, {}}));
    QVERIFY(!accepted.jobId.isEmpty());
    QCOMPARE(get(waiting.threadId).messages.size(), before);
    f->clock.advance(5s);
    const ThreadDetail after = get(waiting.threadId);
    QCOMPARE(after.messages.size(), before + 1);
    QCOMPARE(after.messages.last().kind, u"human"_s);
    QCOMPARE(after.messages.last().cc, QList{u"c@a.example"_s});
    QVERIFY(after.drafts.isEmpty());
    const auto skipped = drafts(words::draftSkipped);
    QCOMPARE(skipped.first().draft.id, waiting.id);
    QCOMPARE(skipped.first().draft.reviewOutcome, QString(words::draftReplaced));
    QCOMPARE(f->refusalCode(Requests::replyToThread(waiting.threadId, {u" \n"_s, {}, {}})), u"invalid_input"_s);
  }

  void anApprovalCanBeTakenBackForAMinute() {
    const Draft draft = firstWaiting();
    const qint64 before = get(draft.threadId).messages.size();
    const Draft approved = f->ask(Requests::approveDraft(draft.id, {u"Mine"_s, u"Re: mine"_s, true, {}}));
    QCOMPARE(approved.aiBody, draft.body);
    QCOMPARE(approved.edited, true);
    QCOMPARE(parsePlatformDate(approved.dueAt), f->clock.now().addSecs(60));
    f->clock.advance(59s);
    const Draft back = f->ask(Requests::undoApproveDraft(draft.id));
    QCOMPARE(back.body, draft.body);
    QVERIFY(back.isWaiting() && !back.reviewOutcome);
    f->ask(Requests::approveDraft(draft.id, {.undo = true}));
    QCOMPARE(f->refusalCode(Requests::approveDraft(draft.id, {})), u"not_waiting"_s);
    f->clock.advance(60s);
    QCOMPARE(f->refusalCode(Requests::undoApproveDraft(draft.id)), u"already_sent"_s);
    const auto messages = get(draft.threadId).messages;
    QCOMPARE(messages.size(), before + 1);
    QCOMPARE(messages.last().draftId, draft.id);
    QCOMPARE(drafts(words::draftAsWritten).first().draft.id, draft.id);
  }

  void aSkippedDraftTellsWhyAndComesBack() {
    const Draft draft = firstWaiting();
    f->ask(Requests::rejectDraft(draft.id, {}));
    QCOMPARE(f->ask(Requests::rejectDraft(draft.id, {u"Too long"_s})).reviewText, u"Too long"_s);
    QCOMPARE(drafts(words::draftSkipped).first().draft.id, draft.id);
    QVERIFY(f->ask(Requests::restoreDraft(draft.id)).isWaiting());
    QCOMPARE(f->refusalCode(Requests::restoreDraft(draft.id)), u"not_rejected"_s);
    const auto versions = f->ask(Requests::draftVersions(draft.id)).versions;
    QCOMPARE(versions.size(), 3);
    QVERIFY(versions.first().body != draft.body && versions.last().body != versions.first().body);
    const Draft picked = f->ask(Requests::approveDraft(draft.id, {.undo = true, .style = versions.first().style}));
    QCOMPARE(picked.body, versions.first().body);
    QCOMPARE(picked.edited, false);
  }

  void decisionsTrainTheAgent() {
    const SetterTraining before = record();
    QVERIFY(before.reviewed == before.window && before.matched < before.reviewed && before.lastFlip);
    const Draft right = firstWaiting();
    f->ask(Requests::approveDraft(right.id, {.undo = true}));
    QVERIFY(!f->ask(Requests::draftTraining(right.id)).done);
    QVERIFY(learned(right.id).done && !learned(right.id).lesson);
    qint64 highest = 0, skipped = 0;
    while (std::ranges::any_of(drafts(), [](const ReviewDraft& one) { return !one.draft.isHeld(); })) {
      const Draft wrong = firstWaiting();
      f->ask(Requests::rejectDraft(wrong.id, {u"No"_s}));
      ++skipped;
      const DraftTraining training = learned(wrong.id);
      // One that the agent never comes back from.
      if (!training.done) continue;
      QVERIFY(training.lesson && training.refreshed.value_or(-1) >= 0);
      QCOMPARE(learned(wrong.id), training);
      highest = std::max(highest, training.lesson->times);
    }
    QVERIFY2(highest > 2, "a rule that comes again counts up");
    const SetterTraining after = record();
    QCOMPARE(after.record.total, before.record.total + 1 + skipped);
    QCOMPARE(after.record.skipped, before.record.skipped + skipped);
    QVERIFY(after.record.asWritten == before.record.asWritten + 1 && after.record.rules >= before.record.rules);
  }

  void theAgentDoesAsItIsSet() {
    auto settings = f->ask(Requests::setterSettings());
    SetterSettingsPatch patch;
    patch.defaultMode = words::modeAuto;
    patch.bookingUrl = Clearable<QString>::cleared();
    const auto changed = f->ask(Requests::updateSetterSettings(patch, settings.version));
    QVERIFY(!changed.bookingUrl && changed.version == settings.version + 1);
    QCOMPARE(f->refusalCode(Requests::updateSetterSettings(patch, settings.version)), u"version_conflict"_s);
    for (const qint64 count : {0, 5})
      QCOMPARE(f->refusalCode(Requests::updateSetterSettings({.followupMax = count}, {})), u"invalid_input"_s);
    QVERIFY(record().lastFlip->auto_);
    QCOMPARE(record().lastFlip->by, u"Maren Kolbe"_s);
    // By itself it answers in Auto mode, not at all where a campaign is off.
    const ThreadDetail sent = get(f->service.bringReply(f->slug, u"meeting_booked"_s));
    QCOMPARE(sent.thread.effectiveMode, QString(words::modeAuto));
    QCOMPARE(sent.drafts.first().status, u"approved"_s);
    f->clock.advance(120s);
    QCOMPARE(get(sent.thread.id).messages.last().kind, QString(words::kindReply));
    for (const auto& mode : f->ask(Requests::setterCampaignModes()).items)
      f->ask(Requests::setSetterMode(mode.campaignId, {words::modeOff}));
    QVERIFY(get(f->service.bringReply(f->slug, u"meeting_booked"_s)).drafts.isEmpty());
    const QString campaign = *sent.thread.campaignId;
    f->ask(Requests::setSetterMode(campaign, {}));
    QCOMPARE(get(sent.thread.id).thread.effectiveMode, QString(words::modeAuto));
    QCOMPARE(f->refusalCode(Requests::setSetterMode(u"c_none"_s, {})), u"not_found"_s);
  }

  void lessonsAreTypedAndSwitchedOff() {
    f->ask(Requests::addSetterLesson({u" Be brief "_s}));
    const SetterLesson lesson = f->ask(Requests::setterLessons()).items.first();
    QCOMPARE(lesson.text, u"Be brief"_s);
    QVERIFY(lesson.source != words::lessonFromReview);
    const qint64 rules = record().record.rules;
    f->ask(Requests::updateSetterLesson(lesson.id, {.status = words::lessonOff}));
    QCOMPARE(f->ask(Requests::setterLessons()).items.first().status, QString(words::lessonOff));
    QCOMPARE(record().record.rules, rules - 1);
    QCOMPARE(f->refusalCode(Requests::addSetterLesson({QString()})), u"invalid_input"_s);
  }

  void repliesComeByThemselves() {
    const auto before = *page().counts;
    f->service.setRepliesPerMinute(30);
    const auto since = f->ask(Requests::unreadCounts()).workspaces.first().latestAt;
    f->clock.advance(20s);
    const auto after = *page().counts;
    QCOMPARE(after.unread, before.unread + 10);
    for (const InboxThread& thread : f->ask(Requests::newReplies(u"interested"_s, since)).items)
      QVERIFY(thread.unread && thread.lastInboundAt > since);
    f->clock.advance(24h);
    QVERIFY2(page().counts->unread <= before.unread + 210, "a night is not made up for at once");
    f->service.setRepliesPerMinute(0);
    const qint64 settled = page().counts->unread;
    f->ask(Requests::checkMail());
    QCOMPARE(page().counts->unread, settled + 1);
  }

  void withoutAKeyItWritesNothing() {
    f->slug = u"caldera"_s;
    QVERIFY(!f->ask(Requests::setterSettings()).hasOpenAiKey);
    QVERIFY(drafts().isEmpty());
    QCOMPARE(f->refusalCode(Requests::draftReply(page().items.first().id)), u"no_ai_key"_s);
    f->slug = u"fresh"_s;
    QVERIFY(page().items.isEmpty());
  }
};

QTEST_GUILESS_MAIN(DemoInboxTest)
#include "inbox_test.moc"
