#include "demo/Inbox.h"
#include "demo/InboxTexts.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

struct MorningRow {
  QString first, last, title, company, campaign, label;
  qsizetype question;
  bool unread;
};

/// The last one first.
const QList<MorningRow>& morning() {
  static const QList<MorningRow> rows{
      {u"Ingrid"_s, u"Solheim"_s, u"Practice manager"_s, u"Fjordvik Clinics"_s, u"Clinic"_s, u"meeting_booked"_s, 0,
       true},
      {u"Tomas"_s, u"Brandl"_s, u"Partner"_s, u"Brandl & Kern Versicherungsmakler"_s, u"Insurance"_s, u"interested"_s,
       1, true},
      {u"Jonas"_s, u"Verbeke"_s, u"Fleet manager"_s, u"Halden Transport"_s, u"Fleet"_s, u"interested"_s, 0, false},
      {u"Amaia"_s, u"Etxeberria"_s, u"Director"_s, u"Costa Norte Homes"_s, u"Property"_s, u"not_now"_s, 0, false},
      {u"Declan"_s, u"Roe"_s, u"Payroll lead"_s, u"Ardmore Payroll"_s, u"Payroll"_s, u"wrong_person"_s, 0, false},
      {u"Katrin"_s, u"Weiss"_s, u"Owner"_s, u"Weiss Assekuranz"_s, u"Insurance"_s, u"out_of_office"_s, 0, false},
      {u"Oliver"_s, u"Finch"_s, u"Operations"_s, u"Larkhill Storage"_s, u"Warehouse"_s, u"unsubscribe"_s, 0, true},
  };
  return rows;
}

void addMorning(DemoWorkspace& workspace, const QDateTime& newest) {
  static const QStringList cities{u"Bergen"_s, u"Zürich"_s, u"Ghent"_s, u"Bilbao"_s, u"Cork"_s, u"Graz"_s, u"Leeds"_s};
  qint64 minutes = 0;
  for (const MorningRow& row : morning()) {
    CampaignLead person;
    person.id = u"l_"_s + row.last.toLower();
    person.firstName = row.first;
    person.lastName = row.last;
    person.title = row.title;
    person.company = row.company;
    person.email = row.first.toLower() + u'@' + row.company.section(u' ', 0, 0).toLower() + u".example"_s;
    person.data = {{u"city"_s, JSONValue::string(cities[&row - morning().data()])}};
    const Incoming reply{.label = row.label, .person = person, .campaign = row.campaign, .question = row.question};
    receiveReply(workspace, reply, newest.addSecs(-60 * (minutes += 24))).record.unread = row.unread;
  }
}

void makeChatty(DemoThread& chatty, const QDateTime& newest) {
  chatty.record.subject = u"Re: five hundred times back and forth"_s;
  const QDateTime from = newest.addDays(-40);
  for (int at = 0; at < 498; ++at) {
    InboxMessage message =
        messageIn(chatty, u"inbound"_s, u"And number %1. Does that answer it?"_s.arg(at + 1), from.addSecs(at * 6600));
    if (at % 2) {
      message.direction = u"outbound"_s;
      message.state = u"sent"_s;
      std::swap(message.fromAddress, message.toAddress);
      message.fromName.reset();
      message.kind = at % 10 == 1 ? u"followup"_s : u"human"_s;
    }
    chatty.messages.insert(chatty.messages.size() - 1, message);
  }
}

/// What a stranger sends who means the reader ill, or does not think of them at all.
void addStrangers(DemoWorkspace& workspace, const QDateTime& newest) {
  const auto add = [&](int hoursAgo) -> DemoThread& {
    return receiveReply(workspace, {.label = u"interested"_s}, newest.addSecs(-3600LL * hoursAgo));
  };
  DemoThread& markup = add(50);
  markup.record.contactName = u"<b>Ines</b> \u202Egnp.esrever\u202C"_s;
  markup.record.subject = u"Re: <img src=x onerror=alert(1)> &amp; offer"_s;
  markup.messages.last().body =
      u"<h1>Hello</h1> see https://example.com/a?b=<c> and javascript:alert(1), or http://xn--pypal-4ve.example\u200b/login"_s;
  markup.messages.last().html =
      u"<p>Hello</p><img src=\"https://tracker.example/pixel.png\"><script>alert(1)</script>"_s;
  markup.messages.last().fromAddress = u"pay\u200bments@\u202Eelpmaxe.knab\u202C.example"_s;

  DemoThread& silent = add(52);
  silent.record.contactName.reset();
  silent.record.lead.reset();
  silent.record.label.reset();
  silent.messages.last().body.clear();
  silent.messages.last().html = u"<table><tr><td>Only a picture</td></tr></table>"_s;

  DemoThread& endless = add(54);
  endless.record.subject = u"Re: an endless quotation"_s;
  QString line = u"> and once more what we said before, with äöü and 中文 so that no byte is alone.\n"_s;
  endless.messages.last().body = u"See below.\n"_s + line.repeated(qsizetype((1 << 20) / line.toUtf8().size()));

  makeChatty(add(56), newest);

  DemoThread& gone = add(58);
  gone.record.contactAddress = u"gone."_s + gone.record.contactAddress;
  if (DemoDraft* draft = findDraft(workspace, u"dr_%1_%2"_s.arg(workspace.slug).arg(workspace.inbox.lastNumber)))
    draft->record.toAddress = gone.record.contactAddress;
  gone.record.kind = u"telegram"_s;
}

/// What was decided about drafts so far, and went out.
void addHistory(DemoWorkspace& workspace, qint64 count, DemoRandom& random, const QDateTime& newest) {
  static const QStringList answered{u"interested"_s, u"not_now"_s, u"call_back"_s, u"wrong_person"_s};
  for (qint64 at = 0; at < count; ++at) {
    const QDateTime came = newest.addDays(-3).addSecs(-at * 21'600);
    DemoThread& thread = receiveReply(workspace, {.label = answered[at % answered.size()], .question = at % 3}, came);
    thread.record.unread = false;
    const QString id = thread.id();
    DemoDraft& draft = writeDraft(workspace, thread, came);
    const QDateTime decided = came.addSecs(random.between(600, 7200));
    const qint64 kind = random.below(10);
    if (kind < 2) {
      putAside(draft, kind ? u"skipped"_s : u"replaced"_s, decided);
      if (kind) draft.record.reviewText = u"They asked for something else."_s;
    } else {
      const bool edited = kind < 4;
      // Shorter: what it asks at its end is left out.
      if (edited) draft.record.aiBody = std::exchange(draft.record.body, draft.record.body.section(u"\n\n"_s, 0, 1));
      draft.record.edited = edited;
      draft.record.reviewOutcome = edited ? orv::words::draftEdited : orv::words::draftAsWritten;
      if (kind > 8) draft.record.reviewStyle = orv::words::styleCasual;
      draft.record.reviewedAt = formatPlatformDate(decided);
      approve(draft, decided, std::chrono::seconds(60));
    }
    // What was learned of it at the time is not learned again.
    draft.training = DraftTraining{.done = true, .kind = draft.record.reviewOutcome};
    if (draft.record.reviewText || draft.record.aiBody) {
      draft.record.learnedKind = u"new"_s;
      draft.record.learnedText = lessonTexts().first();
    }
  }
}

void addLessons(DemoInbox& inbox, const QDateTime& newest) {
  const QStringList from{u"Tomas Brandl"_s, u"Ingrid Solheim"_s, u"Jonas Verbeke"_s};
  for (qsizetype at = 0; at < 4; ++at) {
    const bool typed = at == 3;
    inbox.lessons.append({u"le_%1"_s.arg(at + 1),
                          typed ? u"Answer in the language of the last message."_s : lessonTexts()[at],
                          typed ? u"member"_s : QString(orv::words::lessonFromReview), orv::words::lessonActive,
                          typed ? 1 : 9 - 3 * qint64(at), typed ? std::nullopt : std::optional(from[at]),
                          formatPlatformDate(newest.addDays(-10 - at))});
  }
}

}  // namespace

void addInbox(DemoWorkspace& workspace, qint64 threads, DemoRandom random, const QDate& today) {
  DemoInbox& inbox = workspace.inbox;
  const QDateTime newest(today.addDays(-1), QTime(17, 40), Qt::UTC);
  inbox.ownLabels = {{u"call_back"_s, u"Call me back"_s, u"positive"_s}};
  SetterSettings& settings = inbox.settings;
  settings.repName = u"Ellen"_s;
  settings.signature = {u"Ellen Marsh"_s, u"Partnerships"_s, workspace.name, u"+49 30 555 01"_s, {}, {}};
  settings.knowledgeBase =
      u"We write on behalf of our clients.\n\nFleet care: reserved workshop slots, vans collected from the depot "
      u"between "
      "06:00 and 07:30.\nClinics: reminders by text, free slots offered to the waiting list, first month "
      "free.\nBrokers: "
      "renewal letters from their own policies, French and German.\nPayroll: two runs side by side before a "
      "switch."_s;
  settings.instructions = u"Short sentences. One question at the end."_s;
  settings.tone = orv::words::toneFriendly;
  settings.defaultMode = orv::words::modeDraft;
  settings.bookingUrl = u"https://cal.%1.example/ellen"_s.arg(workspace.slug);
  settings.followupIntervalMinutes = 2880;
  settings.followupMax = 2;
  settings.hasOpenAiKey = workspace.slug != "caldera"_L1;
  settings.version = 1;
  addLessons(inbox, newest);
  if (workspace.mailboxes.isEmpty()) return;
  for (const DemoCampaign& campaign : workspace.campaigns)
    if (campaign.record.status.isCompleted()) inbox.modes.insert(campaign.record.id, orv::words::modeOff);
  inbox.lastFlip = SetterTraining::Flip{false, u"Maren Kolbe"_s, formatPlatformDate(newest.addDays(-9)), 20, 9};
  if (threads > 40) {
    addMorning(workspace, newest.addSecs(9000));
    addStrangers(workspace, newest);
    addHistory(workspace, 24, random, newest);
  }
  // The more there are, the closer they came.
  const qint64 between = std::max<qint64>(60, 30LL * 86400 / std::max<qint64>(1, threads));
  for (qint64 at = inbox.threads.size(); at < threads; ++at) {
    DemoThread& thread = receiveReply(workspace, {}, newest.addSecs(-at * between));
    thread.record.unread = at % 4 == 1;
    if (at % 9 == 8) thread.record.status = orv::words::threadArchived;
    // Most of what is older has been answered.
    if (thread.record.unread || at < 40) continue;
    inbox.drafts.removeIf([&](const DemoDraft& draft) { return draft.record.threadId == thread.id(); });
  }
}

}  // namespace orv::demo
