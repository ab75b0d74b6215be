#pragma once

#include <QHash>

#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/DraftStep.h"

namespace orv {

/// Has the service vary one text of the sequence at a time, and knows what the text was before.
class Spintax final {
 public:
  struct Spun {
    QString before, after;
  };

  /// `changed` is called whenever field() is another one.
  Spintax(CampaignContext& context, std::function<void()> changed)
      : m_context(context), m_changed(std::move(changed)) {}

  /// The field that is being varied: "subject", "body" or empty.
  const QString& field() const { return m_field; }
  static QString DraftVariant::*textOf(const QString& field);

  /// The text varied; nothing when it could not be, which has been told.
  Task<std::optional<QString>> make(QString field, QString before);
  /// Nobody waits for it any more.
  void stop() { set({}); }

  void remember(const QUuid& variant, const QString& field, const Spun& spun) { m_spun.insert({variant, field}, spun); }
  /// What the text was before it was varied; empty when that is not what stands there.
  QString before(const QUuid& variant, const QString& field, const QString& now) const;

 private:
  void set(const QString& field);

  CampaignContext& m_context;
  std::function<void()> m_changed;
  QString m_field;
  /// By the variant's key and the field.
  QHash<std::pair<QUuid, QString>, Spun> m_spun;
};

}  // namespace orv
