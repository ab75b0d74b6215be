#pragma once

#include <map>
#include <memory>

#include "app/leads/FacetList.h"

namespace orv {

/// The filters of the search, which are the search: every change of a filter is a change of this one value.
class LeadFilters final : public Store {
  Q_OBJECT
  Q_PROPERTY(QString database READ database NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> databases READ databases CONSTANT)
  Q_PROPERTY(QVariantMap values READ values NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> groups READ groups NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> chips READ chips NOTIFY changed)
  Q_PROPERTY(bool any READ any NOTIFY changed)
  Q_PROPERTY(QStringList exclusions READ exclusions NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> keywordPlaces READ keywordPlaces CONSTANT)
  Q_PROPERTY(bool folded READ folded WRITE setFolded NOTIFY foldedChanged)

 public:
  using Records = std::function<std::optional<QList<FacetPage::Item>>(const QString& key)>;

  /// `records` gives the workspace's lists and campaigns, as values of "list" and "campaign".
  LeadFilters(WorkspaceContext& context, Store& whole, Records records);

  const LeadSearch& search() const { return m_search; }
  /// The whole of it is another one.
  void setSearch(const LeadSearch& search);
  /// The values only; the pool stays.
  void setValues(const QMap<QString, QString>& values);
  void setPool(const QString& pool);

  QString database() const { return m_search.database(); }
  QList<Choice> databases() const;
  /// The value of every key that has one.
  QVariantMap values() const;
  /// With how many filters hold in each, and whether it is open.
  QList<Choice> groups() const;
  /// One for each value that holds: what it is of, the value, and whether it is excluded.
  QList<Choice> chips();
  bool any() const { return m_search.hasFilters(); }
  /// Keys whose exclusions show.
  QStringList exclusions() const;
  /// Where keywords are looked for.
  static QList<Choice> keywordPlaces();
  bool folded() const { return m_isFolded; }
  void setFolded(bool folded);

  Q_INVOKABLE void chooseDatabase(const QString& name);
  /// One value, letter by letter.
  Q_INVOKABLE void type(const QString& key, const QString& text);
  /// The same at once.
  Q_INVOKABLE void choose(const QString& key, const QString& value);
  Q_INVOKABLE void toggle(const QString& key, const QString& value);
  /// What was typed into the key's list becomes a value.
  Q_INVOKABLE void addTyped(const QString& key);
  Q_INVOKABLE void removeChip(const QString& chip);
  Q_INVOKABLE void clear();
  Q_INVOKABLE void setOpen(const QString& group, bool open);
  Q_INVOKABLE void showExclusions(const QString& key);
  /// Why a number cannot be; empty when it can.
  Q_INVOKABLE QString numberProblem(const QString& text) const;

  /// The group's filters in the database that is searched.
  Q_INVOKABLE QList<orv::LeadField> fields(const QString& group) const;
  /// The values of a key; null for one that has no list.
  Q_INVOKABLE orv::FacetList* facet(const QString& key);
  /// The workspace's lists or campaigns are others.
  void recordsChanged();

 Q_SIGNALS:
  void changed();
  void foldedChanged();
  /// The search is another one, by letters typed or at once.
  void edited(bool typed);

 private:
  void edit(const LeadSearch& search, bool typed = false);
  Choice chip(const LeadSearch::Part& part);
  std::optional<Choice> followersChip() const;
  int holding(const QString& group) const;
  void learnWords();

  LeadSearch m_search;
  FacetContext m_facetContext;
  std::map<QString, std::unique_ptr<FacetList>> m_facets;
  QStringList m_open{QStringLiteral("title"), QStringLiteral("industry")};
  QStringList m_shownExclusions;
  bool m_isFolded;
};

}  // namespace orv
