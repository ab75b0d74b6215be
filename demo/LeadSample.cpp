#include "demo/LeadSample.h"

#include "demo/Enrolment.h"
#include "demo/Pitches.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::demo {
namespace {

const auto maren = u"Maren Kolbe"_s, tomas = u"Tomas Lind"_s;

struct ListRow {
  QString name, description, by;
  qint64 leads;
  int daysAgo;
  /// 0 for a list that is not archived.
  int archivedDaysAgo = 0;
};

QString daysBefore(const QDate& today, int days) {
  return formatPlatformDate(QDateTime(today.addDays(-days), QTime(9, 40), Qt::UTC));
}

DemoLeadList listOf(const ListRow& row, DemoWorkspace& workspace, const QDate& today) {
  DemoLeadList list;
  list.record.number = ++workspace.lastListNumber;
  list.record.id = u"li_"_s + QString::number(workspace.lastListNumber);
  list.record.name = row.name;
  if (!row.description.isEmpty()) list.record.description = row.description;
  list.record.createdBy = row.by;
  list.record.createdAt = daysBefore(today, row.daysAgo + 2);
  list.record.updatedAt = daysBefore(today, row.daysAgo);
  if (row.archivedDaysAgo > 0) list.record.archivedAt = daysBefore(today, row.archivedDaysAgo);
  return list;
}

/// Every so many of the database, which the workspace has unlocked.
void addFromBase(DemoLeadList& list, WorkspaceLeads& leads, qint64 count) {
  const qint64 size = leads.base->size(), step = 7919;
  for (qint64 i = 0, at = *list.record.number * 1009; i < std::min(count, size / 4); ++i, at += step) {
    const LeadPlace place{at % size};
    leads.giveUnlocked(place);
    list.add(place);
  }
}

/// People met at a fair, out of a file.
DemoLeadList fair(DemoWorkspace& workspace, DemoRandom& random, const QDate& today) {
  DemoLeadList list =
      listOf({u"Trade fair, Hanover"_s, u"Badges scanned at the stand"_s, tomas, 40, 20, 0}, workspace, today);
  list.record.id = u"li_fair"_s;
  for (qint64 number = 1; number <= 40; ++number) {
    const CampaignLead person = makePerson(random, number, pitchOf({}));
    list.add(workspace.leads.addOwn(recordOf(person, *list.record.createdAt)));
  }
  workspace.blocklist.append(workspace.leads.own().last().email);
  return list;
}

DemoImport import(const QString& file, const char* status, int daysAgo, const QString& listId, const QDate& today) {
  DemoImport import;
  LeadImport& record = import.record;
  record.id = u"im_"_s + file.section(u'.', 0, 0);
  record.kind = u"csv"_s;
  record.status = ImportStatus(QString::fromLatin1(status));
  record.fileName = file;
  if (!listId.isEmpty()) record.listId = listId;
  record.createdAt = daysBefore(today, daysAgo);
  record.startedAt = record.finishedAt = record.createdAt;
  return import;
}

void addImports(WorkspaceLeads& leads, const QDate& today) {
  DemoImport cancelled = import(u"hotels-winter.csv"_s, "cancelled", 96, {}, today);
  cancelled.record.totalRows = 640;
  cancelled.record.readRows = cancelled.record.skipped = 120;
  DemoImport failed = import(u"export (3).csv"_s, "failed", 21, {}, today);
  failed.record.totalRows = 3'118;
  failed.record.readRows = failed.record.skipped = 1'202;
  failed.record.lastError = u"Row 1,204 has 11 columns, the header has 9."_s;
  DemoImport done = import(u"messe-okt.csv"_s, "done", 20, u"li_fair"_s, today);
  done.record.totalRows = done.record.readRows = 44;
  done.record.inserted = 40;
  done.record.skipped = 4;
  leads.imports = {done, failed, cancelled};
}

void addSearches(WorkspaceLeads& leads, const QDate& today) {
  leads.searches = {
      {u"s_dach"_s,
       u"Insurance owners, DACH"_s,
       {{u"source"_s, u"linkedin"_s},
        {u"title"_s, u"Owner,Managing director"_s},
        {u"industry"_s, u"Insurance"_s},
        {u"country"_s, u"Germany,Austria"_s},
        {u"xverification"_s, u"invalid"_s}},
       daysBefore(today, 3),
       {}},
      {u"s_creators"_s,
       u"Restaurants with a following"_s,
       {{u"source"_s, u"instagram"_s}, {u"industry"_s, u"Hospitality"_s}, {u"followersMin"_s, u"2000"_s}},
       daysBefore(today, 12),
       {}},
      {u"s_old"_s,
       u"Everybody in Riga"_s,
       {{u"state"_s, u"Riga"_s}, {u"source"_s, u"linkedin"_s}},
       daysBefore(today, 40),
       daysBefore(today, 9)},
  };
}

}  // namespace

void addLeads(DemoWorkspace& workspace, DemoRandom& random, const QDate& today) {
  const QList<ListRow> rows{
      {u"Never write again"_s, u"Asked to be left alone on the phone"_s, maren, 74, 110, 0},
      {u"Boutique hotels"_s, u"Owners, under 40 rooms"_s, maren, 212, 102, 0},
      {u"Solar installers"_s, {}, tomas, 180, 95, 0},
      {u"Recruiters, first try"_s, {}, maren, 60, 90, 11},
      {u"Payroll switchers, Ireland"_s, u"Finance leads, 20 to 200 people"_s, tomas, 260, 80, 0},
      {u"Warehouse operators, UK"_s, u"Operations heads, over 5,000 m²"_s, tomas, 150, 24, 0},
      {u"Gyms, spring"_s, u"Bounced too often"_s, maren, 90, 60, 4},
      {u"Property managers, Iberia"_s, {}, maren, 190, 12, 0},
      {u"Insurance owners, DACH"_s, u"Owners and managing directors"_s, maren, 310, 1, 0},
  };
  for (const ListRow& row : rows) {
    DemoLeadList list = listOf(row, workspace, today);
    addFromBase(list, workspace.leads, row.leads);
    workspace.lists.prepend(list);
  }
  workspace.lists.prepend(fair(workspace, random, today));
  addSearches(workspace.leads, today);
  addImports(workspace.leads, today);
  workspace.leads.setAllowance({.locked = true, .used = 588, .limit = 2'000});
}

void addCredits(DemoWorkspace& workspace) {
  workspace.leads.setAllowance({.locked = true, .used = 0, .limit = 250, .credits = true});
}

}  // namespace orv::demo
