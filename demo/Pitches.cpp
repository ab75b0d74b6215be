#include "demo/Pitches.h"

#include <algorithm>

#include "demo/DemoRandom.h"
#include "kit/models/inbox/inboxWords.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

constexpr qint64 minutesOfDay = 1440;

Talk asks(const QString& said, const QString& answer, const QString& reason) {
  return {u"interested"_s, u"reply"_s, said, u"Hi {name},\n\n"_s + answer, reason};
}

Talk asksPrice(const QString& said, const QString& answer) {
  return {u"interested"_s,
          u"reply"_s,
          said,
          u"Hi {name},\n\n"_s + answer,
          u"Asks for the price. The agent names it and offers one time."_s,
          u"price"_s,
          u"Names a price that is not in the knowledge base."_s};
}

QList<Pitch> allPitches() {
  return {
      {.about = u"fleet"_s,
       .trades = {u"Transport"_s, u"Couriers"_s, u"Haulage"_s, u"Vans"_s},
       .subject = u"Workshop slots next week"_s,
       .opening =
           u"How many of {{company}}’s vans stood still last month because no workshop had a bay free?\n\nWe hold "
           "{four|a few} slots a week for fleets around {{city}}. We collect from the depot before eight, and the "
           "van is back by five.\n\nShall I send you the slots that are free next week?"_s,
       .otherSubject = u"{{company}} and the service bay"_s,
       .otherOpening = u"Two vans off the road is a driver without work. Most fleets around {{city}} tell us that the "
                       "repair takes a day and the waiting takes three.\n\nWe keep bays free for fleets, so that it is "
                       "{one day|a day} and no more.\n\nIs that worth five minutes this week?"_s,
       .second =
           u"Quick follow-up to my note. Most fleets around {{city}} lose about two days a month waiting for a "
           "service bay, and the bookings still run over the phone.\n\nWe keep {four|a few} reserved slots a week "
           "for fleets of your size, including collection from the depot.\n\nWorth a look at what next week’s "
           "slots would be for {{company}}?"_s,
       .topic = u"the workshop slots"_s,
       .questions =
           {asks(u"Could work. We run 38 vans and two are always off the road. Who handles collection if the "
                 "driver is already out? And can we book the same slot every second Tuesday?"_s,
                 u"Our driver picks up from your depot between 06:00 and 07:30, so nobody has to be there. And "
                 "yes, a fixed slot every second Tuesday is fine.\n\nShall I put the first two in as a "
                 "booking?"_s,
                 u"Asks how it works and offers a rhythm. The agent answers both and proposes the next step."_s),
            asksPrice(u"What do you charge per van? We would start with twelve and see."_s,
                      u"For twelve vans it is 38 euro a van and month, collection included, and you can stop "
                      "at any month’s end.\n\nWould Wednesday at 10:00 suit you to go through the first "
                      "slots?"_s)}},
      {.about = u"clinic"_s,
       .trades = {u"Clinics"_s, u"Dental"_s, u"Physio"_s, u"Practice"_s},
       .subject = u"Fewer no-shows in March"_s,
       .opening =
           u"One in nine appointments at practices around {{city}} is missed, and the chair stays empty.\n\nWe ask "
           "patients the day before by text, and offer the slot to the waiting list {at once|within minutes} "
           "when somebody cancels.\n\nWould it help if I worked out what that is for {{company}}?"_s,
       .second = u"A number to go with my last note: a practice with four chairs fills {eleven|a dozen} slots a month "
                 "that used to stay empty.\n\nIt runs beside the calendar you have. Reception does nothing "
                 "new.\n\nShall I show you how it would look with your own calendar?"_s,
       .topic = u"missed appointments"_s,
       .questions = {asks(u"We have a text reminder already. What does yours do that ours does not?"_s,
                          u"It does not stop at the reminder: when somebody cancels, the people on your waiting list "
                          "are asked in turn until the slot is taken, without anybody at reception.\n\nMay I show you "
                          "that with last month’s cancellations?"_s,
                          u"Compares with what they have. The agent names the one difference and offers to show it."_s),
                     asksPrice(u"Sounds good. What does it cost for a practice with three rooms?"_s,
                               u"For three rooms it is 90 euro a month, texts included, and the first month is "
                               "free.\n\nWould Thursday at 12:30 suit you for a quick look?"_s)}},
      {.about = u"propert"_s,
       .trades = {u"Homes"_s, u"Residences"_s, u"Property"_s, u"Estates"_s},
       .subject = u"Tenant requests"_s,
       .opening =
           u"A dripping tap reaches a property manager {four|five} times: by phone, by email, and from the "
           "neighbour.\n\nWe gather what tenants of {{company}} report in one place, with photos, and pass it to "
           "your tradespeople.\n\nIs that something you would look at before the winter?"_s,
       .second =
           u"What others in {{city}} tell us after a quarter: the phone rings a third less, and nobody asks twice "
           "when the plumber comes.\n\nShall I send you the form that tenants fill in, so you can see it from "
           "their side?"_s,
       .topic = u"tenant requests"_s,
       .questions =
           {asks(u"We manage 640 flats and the phone is the problem, yes. Can tenants write in Spanish and "
                 "Portuguese?"_s,
                 u"Yes: the form speaks the tenant’s language, and you read it in yours. For 640 flats we "
                 "would start with one building, so that your team gets used to it.\n\nWhich one rings the "
                 "most?"_s,
                 u"Confirms the problem and asks for languages. The agent answers and suggests a small start."_s),
            asksPrice(u"How is it priced, per flat or per user?"_s,
                      u"Per flat: 40 cents a month, as many users as you like.\n\nShall I write that down for "
                      "your buildings?"_s)}},
      {.about = u"insurance"_s,
       .trades = {u"Versicherungsmakler"_s, u"Assekuranz"_s, u"Insurance"_s, u"Brokers"_s},
       .subject = u"Renewal letters"_s,
       .opening =
           u"Every autumn brokers write the same letters by hand: what changed, what it costs, what to do.\n\nWe "
           "write them from your policies, in your words, and you {only sign|read and sign}.\n\nMay I send you "
           "one for a client of {{company}}, with the names changed?"_s,
       .otherSubject = u"{{company}}’s letters this autumn"_s,
       .otherOpening =
           u"How long does your team sit over the renewal letters? Brokers around {{city}} tell us {two|three} "
           "weeks.\n\nWe bring that down to a morning, and each letter still says what that client needs to "
           "know.\n\nWould a sample from one of your own policies help you judge?"_s,
       .second =
           u"I wrote about the renewal letters last week. The question we hear most: does a client notice?\n\nThey "
           "do, because the letter names their own house, car or firm in the first line. Complaints went down, "
           "calls to thank went up.\n\nShall I prepare two samples for {{company}}?"_s,
       .topic = u"the renewal letters"_s,
       .questions = {asks(
                         u"We use our own templates. Would we have to give those up?"_s,
                         u"No. We take your templates as they are and fill in what changes from client to client; what "
                         "you don’t like, you change once for all.\n\nIf you send me one template, I’ll send it back "
                         "filled in by Friday."_s,
                         u"Fears to lose their templates. The agent takes the fear and asks for one to show it on."_s),
                     asksPrice(
                         u"Interesting timing, we are reviewing this quarter. What does it cost for 14 brokers, and "
                         "does it work with letters in French for our Swiss clients?"_s,
                         u"For 14 brokers it is 490 euro a month, with no minimum term. French works today.\n\nIf it "
                         "helps your review, I can prepare two of your own cases as a sample. Would Tuesday at "
                         "14:00 suit you?"_s)}},
      {.about = u"warehouse"_s,
       .trades = {u"Storage"_s, u"Warehousing"_s, u"Logistics"_s},
       .subject = u"Dock scheduling"_s,
       .opening =
           u"At {{company}}, who decides which lorry gets the next dock?\n\nMostly it is whoever shouts first. We "
           "give each carrier a slot {by phone|on their phone}, and you see the day at a glance.\n\nWorth a look "
           "with tomorrow’s arrivals?"_s,
       .second =
           u"The short version of my last note: carriers book, docks fill evenly, and waiting charges stop. One "
           "site near {{city}} saved 31 hours of waiting in its first month.\n\nShall I show you how carriers see "
           "it?"_s,
       .topic = u"the docks"_s,
       .questions =
           {asks(u"Half our carriers are one-man firms. They won’t install anything."_s,
                 u"They don’t have to: they get a link by text, tap a time and are done. Nothing to install, no "
                 "password.\n\nShall I send the link to your own phone so that you can try it?"_s,
                 u"Doubts that carriers take part. The agent explains the link and lets them try it."_s),
            asksPrice(u"What would that be for nine docks?"_s,
                      u"Nine docks are 270 pounds a month, carriers free.\n\nWould Monday at 15:00 work for a "
                      "look at your own plan?"_s)}},
      {.about = u"food"_s,
       .trades = {u"Foods"_s, u"Wholesale"_s, u"Provisions"_s},
       .subject = u"Orders that come in at night"_s,
       .opening =
           u"Restaurants order after closing time, by voicemail and by photo of a list.\n\nWe turn those into "
           "orders before your pickers start at four, with {open questions|doubtful lines} marked.\n\nShall I run "
           "last night’s messages of {{company}} through it?"_s,
       .second =
           u"A wholesaler in {{city}} had two people typing from midnight to four. Now one of them drives the early "
           "round.\n\nWould you like to see what it makes of your own voicemails?"_s,
       .topic = u"the night orders"_s,
       .questions =
           {asks(u"Our chefs write in dialect and with their own names for things. Can it read that?"_s,
                 u"After about two weeks, yes: it learns each kitchen’s words from what your people correct, and "
                 "asks when it is not sure.\n\nSend me ten of the worst and I’ll show you what it makes of "
                 "them."_s,
                 u"Doubts that it understands. The agent explains how it learns and asks for hard cases."_s),
            asksPrice(u"What do you take per order?"_s,
                      u"Twelve cents an order line, nothing for lines that a person has to mend.\n\nShall we try "
                      "one week?"_s)}},
      {.about = u"freight"_s,
       .trades = {u"Freight"_s, u"Forwarding"_s, u"Shipping"_s},
       .subject = u"Customs papers before the lorry leaves"_s,
       .opening = u"A missing code holds a lorry at the border for {half a day|hours}, and nobody knows which paper it "
                  "was.\n\nWe check a shipment’s papers before it leaves {{city}}, and say in one line what is "
                  "missing.\n\nShall I check last week’s shipments of {{company}} to show you?"_s,
       .second = u"Of the shipments we checked in October, one in fourteen had a paper that would have stopped it. All "
                 "were mended the same morning.\n\nWould a check of five of yours help you judge?"_s,
       .topic = u"the customs papers"_s,
       .questions =
           {asks(u"We clear through an agent in Riga. Does that change anything?"_s,
                 u"No, your agent gets papers that are complete, which they will like. We check before they see "
                 "them.\n\nShall I write to them directly, or do you want to see it first?"_s,
                 u"Asks whether their agent fits in. The agent says so and leaves the choice."_s),
            asksPrice(u"How much per shipment?"_s,
                      u"Two euro a shipment, and nothing for one that we let through by mistake.\n\nShall we start "
                      "with next week’s?"_s)}},
      {.about = u"payroll"_s,
       .trades = {u"Group"_s, u"Holdings"_s, u"Payroll"_s},
       .subject = u"Payroll switch"_s,
       .opening = u"Nobody changes payroll in December, so most teams find in March that they should have "
                  "asked.\n\nWe move a company of {{company}}’s size over in {three|four} weeks, with two runs side by "
                  "side before anything goes live.\n\nIs this on your list for the new year?"_s,
       .second =
           u"What people fear about switching is one wrong payslip. In the last forty moves there were none, because "
           "both systems run side by side for two months.\n\nShall I send you the plan that we would use for "
           "{{company}}?"_s,
       .topic = u"the payroll switch"_s,
       .questions =
           {asks(u"Who answers when somebody has a question about their payslip?"_s,
                 u"We do, by phone and by email, from eight to six. Your team only hears of it when something has "
                 "to be decided.\n\nWould you like to speak to a company that moved in spring?"_s,
                 u"Asks who answers questions. The agent says so and offers a reference."_s),
            asksPrice(u"What would 220 people cost?"_s,
                      u"For 220 people it is 5.40 euro a payslip, the move included.\n\nShall I put that into an "
                      "offer?"_s)}},
      {.about = u"solar"_s,
       .trades = {u"Solar"_s, u"Energy"_s, u"Installations"_s},
       .subject = u"Roofs with their papers done"_s,
       .opening = u"The panels are up in two days and the grid operator takes two months.\n\nWe file the papers for "
                  "{{company}} and follow them up {every week|week by week}, so that the customer is on the grid while "
                  "they still like you.\n\nHow many of your roofs are waiting just now?"_s,
       .second =
           u"We have filed 1,900 connections this year; 94 in a hundred went through the first time.\n\nShall I look "
           "at the three of yours that have waited longest?"_s,
       .topic = u"the grid papers"_s,
       .questions =
           {asks(u"Nineteen are waiting. Do you know our grid operator around {city}?"_s,
                 u"Yes, we file there every week, and know who picks up the phone. If you send me the nineteen, "
                 "I’ll tell you by Monday which can be moved at once.\n\nWould a list by email do?"_s,
                 u"Names a number and asks for experience. The agent offers a quick first result."_s),
            asksPrice(u"What do you charge for one connection?"_s,
                      u"160 euro a roof, due when it is on the grid and not before.\n\nShall we take the first "
                      "five?"_s)}},
      {.about = {},
       .trades = {u"Partners"_s, u"Trading"_s, u"Works"_s, u"Services"_s},
       .subject = u"{{company}} and the open quotes"_s,
       .opening =
           u"Of ten quotes that a company in {{city}} sends, {four|three} are never answered, and nobody has the "
           "time to ask.\n\nWe ask for you, politely and in your name, and put those who answer straight into your "
           "calendar.\n\nCould we try it with last month’s quotes of {{company}}?"_s,
       .second =
           u"Only a thought on my last note: the quotes that are answered late are mostly won, because nobody else "
           "asked either.\n\nShall I look through ten of {{company}}’s, free of charge, and tell you which I would "
           "ask about?"_s,
       .topic = u"the open quotes"_s,
       .questions =
           {asks(u"Sounds useful for {company}. Send me two lines on how it works?"_s,
                 u"You send us the list once a week, we come back with what changed, and your team only looks at "
                 "those. Most see the difference in the second week.\n\nWorth ten minutes on Thursday?"_s,
                 u"Asks for more. The agent explains in three sentences and offers one time."_s),
            asksPrice(u"What does that cost? We send about sixty quotes a month."_s,
                      u"For sixty quotes it is 240 euro a month, and you can stop when you like.\n\nShall we begin "
                      "with October’s?"_s)}},
  };
}

/// What stands between the second email and the last, and the last itself.
const QStringList& furtherEmails() {
  static const QStringList texts{
      u"I’ll keep this short: {{company}} would start with one case and see what comes of it. No contract for that, "
      u"and "
      "nothing to install.\n\nIs {topic} with you, or {should I ask somebody else|is there somebody else I should ask}?"_s,
      u"Three questions I am always asked about {topic}: how long does it take (a week), who does the work (we do), "
      u"and "
      "what if it does not help (then you pay nothing).\n\nIs there a fourth that you would ask?"_s,
      u"Last month a company of about {{company}}’s size began with us. What convinced them was not me but two weeks "
      u"of "
      "their own figures.\n\nMay I show you those figures, without the name?"_s};
  return texts;
}

const auto lastEmail =
    u"I have not heard from you, so I take it that {topic} {can wait|is no subject} at {{company}} just now. I’ll "
    u"close "
    "this for the moment and won’t write again.\n\nIf that changes, one line is enough."_s;

QString whole(const QString& text, const QString& topic, const QString& greeting) {
  return greeting + u" {{firstName}},\n\n"_s + QString(text).replace(u"{topic}"_s, topic) +
         u"\n\n{{accountSignature}}"_s;
}

}  // namespace

const Pitch& pitchOf(const QString& campaign) {
  static const QList<Pitch> pitches = allPitches();
  // The last one fits every name.
  return *std::ranges::find_if(pitches,
                               [&](const Pitch& pitch) { return campaign.contains(pitch.about, Qt::CaseInsensitive); });
}

QList<CampaignStep> stepsFor(const Pitch& pitch, qint64 count, DemoRandom& random) {
  static constexpr qint64 waits[] = {0, 2, 4, 5, 7};
  QList<CampaignStep> steps;
  const auto add = [&](CampaignStep& step, const QString& subject, const QString& body) {
    const QString label = step.variants.isEmpty() ? u"A"_s : u"B"_s;
    step.variants.append({random.id(u"va"_s), label, subject, body, 1, true, {}});
  };
  for (qint64 position = 1; position <= count; ++position) {
    CampaignStep step;
    step.id = random.id(u"st"_s);
    step.position = position;
    step.delayMinutes = waits[std::min<qint64>(position, std::size(waits)) - 1] * minutesOfDay;
    const bool isLast = position > 2 && position == count;
    step.sameThread = position > 1 && !isLast;
    if (position == 1) {
      add(step, pitch.subject, whole(pitch.opening, pitch.topic, u"{Hi|Hello}"_s));
      if (!pitch.otherSubject.isEmpty())
        add(step, pitch.otherSubject, whole(pitch.otherOpening, pitch.topic, u"Hello"_s));
    } else if (position == 2) {
      add(step, {}, whole(pitch.second, pitch.topic, u"{Hi|Hello}"_s));
    } else if (isLast) {
      add(step, u"Closing the loop"_s, whole(lastEmail, pitch.topic, u"Hi"_s));
    } else {
      add(step, {}, whole(furtherEmails()[(position - 3) % furtherEmails().size()], pitch.topic, u"Hi"_s));
    }
    steps.append(step);
  }
  return steps;
}

}  // namespace orv::demo
