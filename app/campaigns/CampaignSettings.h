#pragma once

#include "app/campaigns/ScheduleForm.h"
#include "app/campaigns/SenderPicker.h"
#include "app/campaigns/SettingsDraft.h"
#include "kit/models/labels.h"

namespace orv {

/// A campaign's settings while they are edited. Beside them, and saved apart from them, the schedule.
class CampaignSettings final : public Store {
  Q_OBJECT
  Q_PROPERTY(QVariantMap values READ values NOTIFY changed)
  Q_PROPERTY(QVariantMap errors READ errors NOTIFY changed)
  Q_PROPERTY(bool dirty READ dirty NOTIFY changed)
  Q_PROPERTY(bool saving READ saving NOTIFY changed)
  Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
  Q_PROPERTY(QString notice READ notice NOTIFY changed)
  Q_PROPERTY(QVariantList tags READ tags NOTIFY changed)
  Q_PROPERTY(QVariantList tagSuggestions READ tagSuggestions NOTIFY changed)
  Q_PROPERTY(QString tagNote READ tagNote NOTIFY changed)
  Q_PROPERTY(orv::SenderPicker* senders READ senders CONSTANT)
  Q_PROPERTY(orv::ScheduleForm* schedule READ schedule CONSTANT)

 public:
  static constexpr int mostTags = 20;

  explicit CampaignSettings(CampaignContext& context, QObject* parent = nullptr);

  /// By the names of SettingsDraft's fields.
  QVariantMap values() const { return valuesOf(m_draft); }
  QVariantMap errors() const { return m_errors; }
  bool dirty() const { return m_draft != m_base; }
  bool saving() const;
  bool canSave() const { return dirty() && m_busy.ids().isEmpty(); }
  /// What to know before changing anything here.
  QString notice() const;
  /// Key and label of each.
  QVariantList tags() const;
  QVariantList tagSuggestions() const;
  QString tagNote() const;
  SenderPicker* senders() { return &m_senders; }
  ScheduleForm* schedule() { return &m_schedule; }
  const ScheduleForm& schedule() const { return m_schedule; }

  /// Loads what the form picks from, when first shown.
  Q_INVOKABLE void ensureLoaded();
  Q_INVOKABLE void set(const QString& field, const QVariant& value);
  /// A key, or a name that somebody typed.
  Q_INVOKABLE void addTags(const QStringList& texts);
  Q_INVOKABLE void removeTag(const QString& key);
  Q_INVOKABLE void discard();
  Q_INVOKABLE void save() { m_tasks.start(saveTask()); }
  Task<void> saveTask();

  void close() override;

 Q_SIGNALS:
  void changed();

 private:
  void follow();
  void announce();
  QList<Label> knownTags() const;
  void addTag(const QString& text);

  CampaignContext& m_context;
  BusySet m_busy;
  Actions m_actions;
  SettingsDraft m_draft;
  /// What the draft was typed on.
  SettingsDraft m_base;
  QVariantMap m_errors;
  Resource<TagList> m_tagList;
  SenderPicker m_senders;
  ScheduleForm m_schedule;
  bool m_loaded = false;
};

}  // namespace orv
