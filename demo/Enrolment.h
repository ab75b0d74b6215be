#pragma once

#include "demo/DemoState.h"
#include "demo/SendingHours.h"

namespace orv::demo {

struct Pitch;

/// A campaign's leads and its figures, kept the same by these functions and by nothing else.

/// Makes the sample's leads when they are first asked for, as many of each status as the figures say: a service with
/// ten thousand campaigns must start in a moment.
void enrol(DemoCampaign& campaign, const QDateTime& now);
/// How many leads have an email coming, while nobody has asked for them: as many as enrol() gives one.
qint64 bookedBefore(const LeadCounts& counts, qsizetype steps);
/// Counts the leads anew after they have changed.
void recount(DemoCampaign& campaign);
/// Every lead with the status `from` gets the status `to`.
void changeLeads(DemoCampaign& campaign, const QString& from, const QString& to);
/// The status that a lead has which is neither through the sequence nor held back.
QString openStatus(const DemoCampaign& campaign);

/// Whether an email to the lead has its time.
bool isBooked(const CampaignLead& lead);

/// When the campaign sends, for instants of its whole life.
SendingHours hoursOf(const DemoCampaign& campaign);

/// A person that is enrolled nowhere yet, somebody that the pitch is meant for; `number` keeps the address apart from
/// all others of the same generator.
CampaignLead makePerson(DemoRandom& random, qint64 number, const Pitch& pitch);

CampaignLead* findLead(DemoCampaign& campaign, const QString& id);
/// Of all its leads, those in the archive included.
QSet<QString> addressesIn(const DemoCampaign& campaign);

}  // namespace orv::demo
