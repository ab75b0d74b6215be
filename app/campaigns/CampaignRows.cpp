#include "app/campaigns/CampaignRows.h"

#include <QCollator>

#include "app/base/cellText.h"
#include "app/figures/FigureRows.h"
#include "kit/api/Format.h"
#include "kit/api/PlatformDate.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

double share(qint64 part, qint64 whole) { return whole > 0 ? double(part) / double(whole) : 0; }

QString facts(const CampaignSummary& campaign) {
  const QString when = parsePlatformDate(campaign.launchedAt) ? u"Launched "_s + shortDay(campaign.launchedAt)
                                                              : u"Created "_s + shortDay(campaign.createdAt);
  return QStringList{Format::counted(campaign.steps, u"step"_s, u"steps"_s),
                     Format::counted(campaign.senders, u"inbox"_s, u"inboxes"_s), when}
      .join(u" · "_s);
}

QString progressText(const CampaignSummary& campaign) {
  if (campaign.leads == 0) return u"No leads yet"_s;
  return Format::grouped(campaign.done.value_or(0)) + u" of "_s + Format::grouped(campaign.leads) +
         u" leads are through the sequence"_s;
}

QString figure(const CampaignSummary& campaign, qint64 value) {
  return campaign.sent == 0 ? noValue : Format::grouped(value);
}

QString rate(const CampaignSummary& campaign, qint64 value) {
  return campaign.sent == 0 ? QString() : Format::rate(value, campaign.sent);
}

/// What a column sorts by; nothing sorts last in either direction.
std::optional<double> sortValue(const CampaignSummary& campaign, const QString& key) {
  const auto instant = [](const std::optional<QString>& text) -> std::optional<double> {
    const auto date = parsePlatformDate(text);
    return date ? std::optional(double(date->toMSecsSinceEpoch())) : std::nullopt;
  };
  if (key == "progress"_L1)
    return campaign.leads > 0 ? std::optional(share(campaign.done.value_or(0), campaign.leads)) : std::nullopt;
  if (key == "leads"_L1) return double(campaign.leads);
  if (key == "sent"_L1) return double(campaign.sent);
  if (key == "replied"_L1) return double(campaign.replied);
  if (key == "positive"_L1) return double(campaign.positive);
  if (key == "bounced"_L1) return double(campaign.bounced);
  // The day of going for good follows the day of deletion.
  if (key == "deleted"_L1 || key == "gone"_L1) return instant(campaign.archivedAt);
  return std::nullopt;
}

}  // namespace

CampaignIndex::CampaignIndex(QList<CampaignSummary> items) : m_items(std::move(items)) {
  m_lowerNames.reserve(size_t(m_items.size()));
  for (const auto& item : std::as_const(m_items)) m_lowerNames.push_back(item.name.toLower());
}

const CampaignSummary* CampaignIndex::find(const QString& id) const {
  const auto found = std::ranges::find(m_items, id, &CampaignSummary::id);
  return found == m_items.end() ? nullptr : &*found;
}

const QStringList& CampaignIndex::tags() const {
  if (m_tags) return *m_tags;
  QSet<QString> all;
  for (const auto& item : m_items)
    if (item.tags)
      for (const QString& tag : *item.tags) all.insert(tag);
  m_tags.emplace(all.begin(), all.end());
  std::ranges::sort(*m_tags, nameCollator());
  return *m_tags;
}

std::vector<CampaignSummary> CampaignIndex::visible(const CampaignQuery& query) const {
  const QString needle = query.query.trimmed().toLower();
  const auto matches = [&](qsizetype row) {
    const CampaignSummary& item = m_items[row];
    if (query.filter != "all"_L1 && item.status.rawValue != query.filter) return false;
    if (!needle.isEmpty() && !m_lowerNames[size_t(row)].contains(needle)) return false;
    if (query.tags.isEmpty()) return true;
    return item.tags && std::ranges::any_of(*item.tags, [&](const QString& tag) { return query.tags.contains(tag); });
  };
  std::vector<qsizetype> rows;
  for (qsizetype row = 0; row < m_items.size(); ++row)
    if (matches(row)) rows.push_back(row);
  if (query.sort) sort(rows, *query.sort);

  std::vector<CampaignSummary> visible;
  visible.reserve(rows.size());
  for (const qsizetype row : rows) visible.push_back(m_items[row]);
  return visible;
}

void CampaignIndex::sort(std::vector<qsizetype>& rows, const OrvSort& sort) const {
  if (sort.key == "name"_L1) return sortByName(rows, sort.descending);
  if (sort.key == "status"_L1) {
    std::vector<std::optional<QString>> labels(size_t(m_items.size()));
    for (const qsizetype row : rows) labels[size_t(row)] = m_items[row].status.label();
    return sortByKey(rows, labels, sort.descending);
  }
  std::vector<std::optional<double>> values(size_t(m_items.size()));
  for (const qsizetype row : rows) values[size_t(row)] = sortValue(m_items[row], sort.key);
  sortByKey(rows, values, sort.descending);
}

void CampaignIndex::sortByName(std::vector<qsizetype>& rows, bool descending) const {
  if (m_nameKeys.empty()) {
    const QCollator names = nameCollator();
    m_nameKeys.reserve(size_t(m_items.size()));
    for (const auto& item : m_items) m_nameKeys.push_back(names.sortKey(item.name));
  }
  std::ranges::stable_sort(rows, [&](qsizetype a, qsizetype b) {
    const int order = m_nameKeys[size_t(a)].compare(m_nameKeys[size_t(b)]);
    return descending ? order > 0 : order < 0;
  });
}

CampaignRowsModel::CampaignRowsModel(const BusySet& busy, const BusySet& unsaved, QObject* parent)
    : TableModel(parent), m_busy(busy), m_unsaved(unsaved) {
  for (const BusySet* marks : {&busy, &unsaved})
    connect(marks, &BusySet::changed, this, [this](const QString& id) { touch(id); });
}

const CampaignRowsModel::Cells& CampaignRowsModel::cells() {
  static const Cells cells{
      {"busy", [](auto& model, auto& campaign) -> QVariant { return model.m_busy.contains(campaign.id); }},
      {"unsaved", [](auto& model, auto& campaign) -> QVariant { return model.m_unsaved.contains(campaign.id); }},
      {"statusWord", [](auto&, auto& campaign) -> QVariant { return campaign.status.rawValue; }},
      {"statusLabel", [](auto&, auto& campaign) -> QVariant { return campaign.status.label(); }},
      {"facts", [](auto&, auto& campaign) -> QVariant { return facts(campaign); }},
      {"progress", [](auto&, auto& campaign) -> QVariant { return share(campaign.done.value_or(0), campaign.leads); }},
      {"progressText", [](auto&, auto& campaign) -> QVariant { return progressText(campaign); }},
      {"leadsText", [](auto&, auto& campaign) -> QVariant { return Format::grouped(campaign.leads); }},
      {"sentText", [](auto&, auto& campaign) -> QVariant { return figure(campaign, campaign.sent); }},
      {"repliedText", [](auto&, auto& campaign) -> QVariant { return figure(campaign, campaign.replied); }},
      {"repliedRate", [](auto&, auto& campaign) -> QVariant { return rate(campaign, campaign.replied); }},
      {"positiveText", [](auto&, auto& campaign) -> QVariant { return figure(campaign, campaign.positive); }},
      {"bouncedText", [](auto&, auto& campaign) -> QVariant { return figure(campaign, campaign.bounced); }},
      {"bouncedRate", [](auto&, auto& campaign) -> QVariant { return rate(campaign, campaign.bounced); }},
      {"bouncesHigh",
       [](auto&, auto& campaign) -> QVariant { return bouncesAreHigh(campaign.bounced, campaign.sent); }},
      {"deletedText", [](auto&, auto& campaign) -> QVariant { return shortDay(campaign.archivedAt); }},
      {"goneText", [](auto&, auto& campaign) -> QVariant { return shortDay(campaign.archivedAt, archiveDays); }},
  };
  return cells;
}

}  // namespace orv
