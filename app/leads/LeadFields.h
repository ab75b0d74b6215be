#pragma once

#include <QList>
#include <QObject>
#include <QString>

namespace orv {

/// One filter of the search, as people meet it.
struct LeadField {
  Q_GADGET
  Q_PROPERTY(QString key MEMBER key)
  /// "facet", "text", "number" or "flag".
  Q_PROPERTY(QString kind READ kindName)
  Q_PROPERTY(QString title MEMBER title)
  Q_PROPERTY(QString several MEMBER several)
  Q_PROPERTY(bool excludes MEMBER excludes)

 public:
  enum class Kind {
    /// Values that the service knows, to be ticked.
    facet,
    /// One of the workspace's own records.
    record,
    text,
    number,
    flag
  };
  QString key;
  /// A FilterGroupKey.
  QString group;
  Kind kind = Kind::facet;
  /// "Job title"; before a chip's value as well.
  QString title{};
  /// What its values are called together: "titles".
  QString several{};
  /// A value need not be one of those that the service knows.
  bool takesTyped = false;
  /// Values need the service's words to be read.
  bool isCoded = false;
  /// Exclusions can be set as well.
  bool excludes = false;

  QString kindName() const;
};

/// In the order in which people meet them, group by group.
const QList<LeadField>& leadFields();
/// The filter of a key or of its exclusions; null for what is no filter of its own.
const LeadField* leadField(const QString& key);
/// The key of what is excluded by this one; empty where it excludes nothing.
QString includedKey(const QString& key);
/// The database can be asked for it.
bool fitsDatabase(const QString& key, const QString& database);

struct LeadFieldGroup {
  QString key;
  QString title;
};

/// Those that hold a filter of the database.
QList<LeadFieldGroup> leadFieldGroups(const QString& database);

}  // namespace orv
