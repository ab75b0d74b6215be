#pragma once

#include "app/base/Choice.h"
#include "app/base/Recovery.h"
#include "app/campaigns/ScheduleForm.h"
#include "app/campaigns/SenderPicker.h"
#include "app/campaigns/SettingsDraft.h"
#include "kit/models/labels.h"

namespace orv {

/// A campaign's settings while they are edited. Beside them, and saved apart from them, the schedule.
class CampaignSettings final : public Store {
  Q_OBJECT
  Q_PROPERTY(orv::FieldDraft* draft READ draft CONSTANT)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)
  Q_PROPERTY(bool dirty READ dirty NOTIFY changed)
  Q_PROPERTY(bool saving READ saving NOTIFY changed)
  Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
  Q_PROPERTY(QString notice READ notice NOTIFY changed)
  Q_PROPERTY(QString conflict READ conflict NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> sections READ sections NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tags READ tags NOTIFY changed)
  Q_PROPERTY(QList<orv::Choice> tagSuggestions READ tagSuggestions NOTIFY changed)
  Q_PROPERTY(orv::ResourceBase* knownTags READ knownTags CONSTANT)
  Q_PROPERTY(QString tagNote READ tagNote NOTIFY changed)
  Q_PROPERTY(orv::SenderPicker* senders READ senders CONSTANT)
  Q_PROPERTY(orv::ScheduleForm* schedule READ schedule CONSTANT)

 public:
  explicit CampaignSettings(CampaignContext& context);

  SettingsDraft* draft() { return &m_draft; }
  Recovery* recovery() { return &m_recovery; }
  bool dirty() const { return m_draft.dirty(); }
  bool saving() const;
  bool canSave() const { return dirty() && m_busy.ids().isEmpty(); }
  /// What to know before changing anything here.
  QString notice() const;
  /// What somebody else made of fields that were changed here as well.
  QString conflict() const { return rivalNote(m_draft.rivals()); }
  /// The form's, in their order; ticked are those with something unsaved.
  QList<Choice> sections() const;
  /// Something typed here is not saved, the schedule's hours included.
  bool unsaved() const { return dirty() || m_schedule.dirty(); }
  /// Has whoever shows the form lead to the section.
  void ask(const QString& section);
  /// The section asked for, which is then no longer asked for; empty for none.
  Q_INVOKABLE QString takeAsked() { return std::exchange(m_asked, {}); }
  QList<Choice> tags() const;
  QList<Choice> tagSuggestions() const;
  Resource<TagList>* knownTags() { return &m_tagList; }
  /// What to know of the tags to pick from: there are none, or they could not be read.
  QString tagNote() const;
  SenderPicker* senders() { return &m_senders; }
  ScheduleForm* schedule() { return &m_schedule; }
  const ScheduleForm& schedule() const { return m_schedule; }

  /// What the form picks from is read whenever it is opened.
  void ensureLoaded() override { refresh(); }
  void refresh() override;
  Q_INVOKABLE void retryTags() { m_tagList.load(); }
  /// A key, or a name that somebody typed.
  Q_INVOKABLE void addTags(const QStringList& texts);
  Q_INVOKABLE void removeTag(const QString& key);
  Q_INVOKABLE void discard() { m_draft.discard(); }
  Q_INVOKABLE void save() { m_tasks.start(saveTask()); }
  /// And the schedule, one after the other.
  Q_INVOKABLE void saveAll() { m_tasks.start(saveAllTask()); }
  Task<void> saveTask();
  Task<void> saveAllTask();

 Q_SIGNALS:
  void changed();
  void sectionAsked();

 private:
  void follow();
  QList<Label> tagItems() const;
  void addTag(const QString& text);

  CampaignContext& m_context;
  BusySet m_busy;
  Actions m_actions;
  SettingsDraft m_draft;
  Recovery m_recovery;
  Resource<TagList> m_tagList;
  SenderPicker m_senders;
  ScheduleForm m_schedule;
  QString m_asked;
};

}  // namespace orv
