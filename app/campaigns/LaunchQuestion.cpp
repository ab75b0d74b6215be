#include "app/campaigns/LaunchQuestion.h"

#include "app/base/shownName.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

constexpr qsizetype namedAtMost = 2;

QString sizes(const Campaign& campaign) {
  const qint64 leads = campaign.stats ? campaign.stats->leads.total : 0;
  const qint64 inboxes = campaign.senders ? campaign.senders->size() : 0;
  return Format::counted(leads, u"lead"_s, u"leads"_s) + u" · "_s + Format::counted(inboxes, u"inbox"_s, u"inboxes"_s) +
         u". The first email goes out in about 2 minutes."_s;
}

QString externals(const Qc::External& external) {
  QString text = u"Goes to "_s + QString::number(external.count) + u" real "_s +
                 (external.count == 1 ? u"person"_s : u"people"_s) + u" outside your own inboxes"_s;
  QStringList named = external.sample.first(std::min(namedAtMost, external.sample.size()));
  std::ranges::transform(named, named.begin(), shownName);
  if (!named.isEmpty()) text += u", like "_s + named.join(u", "_s);
  return text + u'.';
}

QString warning(const QcCheck& check) {
  QString detail = check.detail;
  if (detail.endsWith(u'.')) detail.chop(1);
  return shownName(check.label) + u" ("_s + detail + u')';
}

}  // namespace

bool isResume(const Campaign& campaign) { return campaign.status.isPaused(); }

bool namesExternal(const Campaign& campaign) {
  return campaign.qc && campaign.qc->external && campaign.qc->external->count > 0;
}

QList<QcCheck> blockingChecks(const Campaign& campaign) {
  QList<QcCheck> blocking = campaign.qc ? campaign.qc->checks : QList<QcCheck>();
  blocking.removeIf([](const QcCheck& check) { return check.status != "fail"_L1; });
  return blocking;
}

QString tabOfCheck(const QString& key) {
  if (key == "steps"_L1) return u"sequence"_s;
  if (key == "senders"_L1) return u"settings"_s;
  if (key == "leads"_L1) return u"leads"_s;
  return {};
}

ConfirmRequest launchQuestion(const Campaign& campaign) {
  const QString verb = isResume(campaign) ? u"Resume"_s : u"Launch"_s;
  QString text = sizes(campaign);
  if (namesExternal(campaign)) text += u"\n\n"_s + externals(*campaign.qc->external);
  QStringList warnings;
  if (campaign.qc) {
    for (const QcCheck& check : campaign.qc->checks)
      if (check.status == "warn"_L1) warnings.append(warning(check));
  }
  if (!warnings.isEmpty()) text += u"\n\nTips, it still sends: "_s + warnings.join(u"; "_s) + u'.';
  return {verb + u' ' + shownName(campaign.name) + u'?', text, verb, u"Cancel"_s, false, {}};
}

}  // namespace orv
