#include "demo/InboxTexts.h"

#include <algorithm>

#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {

const QList<Talk>& talks() {
  static const QList<Talk> all{
      {u"meeting_booked"_s, u"reply"_s,
       u"Thursday at 10 works for me. Could you send the invitation to my assistant as well?"_s,
       u"Hi {name},\n\nThursday at 10 it is. The invitation goes to you both.\n\nSee you then."_s,
       u"Accepts a time. The agent confirms it and nothing else."_s},
      {u"not_now"_s, u"reply"_s, u"Not before summer, please write again in June."_s,
       u"Hi {name},\n\nOf course. I’ll write again in the first week of June.\n\nUntil then, all the best to {company}."_s,
       u"Asks for a later time. The agent agrees and stops until then."_s},
      {u"not_now"_s, u"reply"_s,
       u"We are in the middle of a move and I can’t look at anything new. Try me again in the new year."_s,
       u"Hi {name},\n\nThank you for telling me. I’ll write again in the second week of January.\n\nI hope the move "
       u"goes "
       "well."_s,
       u"Has no time just now. The agent names when it will write, and wishes well."_s},
      {u"not_interested"_s, u"reply"_s, u"Thanks, but we do this ourselves and are happy with it."_s, {}, {}},
      {u"wrong_person"_s, u"reply"_s, u"I left that team in August, Siobhan Hale is the person you want."_s,
       u"Hi {name},\n\nThank you for telling me. I’ll write to Siobhan Hale instead and leave you in peace."_s,
       u"Names somebody else. The agent thanks and moves on."_s},
      {u"out_of_office"_s,
       u"auto_reply"_s,
       u"Thank you for your message. I am out of the office until Monday and read email only now and then. In urgent "
       "cases please call our reception."_s,
       {},
       {}},
      {u"unsubscribe"_s, u"reply"_s, u"Please take me off your list."_s, {}, {}},
      {u"call_back"_s, u"reply"_s, u"Easier by phone. Call me after four, the number is in my signature."_s,
       u"Hi {name},\n\nI’ll call you today after four."_s, u"Asks for a call. The agent says when."_s},
      {{},
       u"reply"_s,
       u"Forwarded to a colleague, let us see."_s,
       u"Hi {name},\n\nThank you. If your colleague has questions, I’m glad to answer them here."_s,
       u"Says little. The agent stays in the conversation without pressing."_s},
      {{}, u"bounce"_s, u"Delivery has failed: the mailbox of this address is full."_s, {}, {}},
  };
  return all;
}

QString inStyle(const QString& answer, const QString& style) {
  const QString rest = answer.section(u"\n\n"_s, 1);
  const QString name = answer.section(u',', 0, 0).section(u' ', 1);
  if (style == orv::words::styleProfessional)
    return u"Dear "_s + name + u",\n\nthank you for your message. "_s + rest + u"\n\nKind regards"_s;
  if (style == orv::words::styleCasual) return u"Hey "_s + name + u",\n\n"_s + rest + u"\n\nCheers"_s;
  if (style == orv::words::styleExcited) return u"Hi "_s + name + u",\n\nthat’s great to hear! "_s + rest;
  return answer;
}

const QStringList& lessonTexts() {
  static const QStringList all{u"Name the price before offering a call."_s,
                               u"No exclamation marks, no “hope you are well”."_s,
                               u"Offer one time, not three."_s,
                               u"Keep it under six lines when they ask one question."_s,
                               u"Sign with the first name only."_s,
                               u"Answer every question before asking one."_s,
                               u"Do not repeat what they wrote."_s};
  return all;
}

}  // namespace orv::demo
