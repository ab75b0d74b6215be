#pragma once

#include <QDate>
#include <QVariantList>
#include <functional>

#include "app/base/Choice.h"
#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/Recovery.h"
#include "app/base/WrittenRows.h"
#include "app/rampup/RoadmapRules.h"

namespace orv {

/// A stage in the editor's table; its id stays with it while it is moved or typed in.
struct StageRow {
  QString id;
  QString key;
  QString name;
  QString days;
  QString warmupFrom;
  QString warmupTo;
  QString campaignFrom;
  QString campaignTo;
  /// The field that breaks the first rule that is broken; empty when it is none of these.
  QString wrong;
  bool operator==(const StageRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(StageRow, (), (id, key, name, days, warmupFrom, warmupTo, campaignFrom, campaignTo, wrong))
ORV_DECLARE_ROW(StageRow)

class StageRows final : public WrittenRows<StageRow> {
 public:
  explicit StageRows(QObject* parent = nullptr)
      : WrittenRows({"name", "days", "warmupFrom", "warmupTo", "campaignFrom", "campaignTo"}, parent) {}
};

/// What the editor changes, for the journal: a map for each stage.
struct EditedStages {
  QVariantList stages;
  bool operator==(const EditedStages&) const = default;
};
BOOST_DESCRIBE_STRUCT(EditedStages, (), (stages))

/// The stages of a roadmap while somebody edits them: of one account, of many, or of a template. It checks them with
/// every keystroke and draws what can be read of them.
class RoadmapEditor final : public Form {
  Q_OBJECT
  Q_PROPERTY(orv::ListModel* stages READ stages CONSTANT)
  Q_PROPERTY(QList<orv::Choice> kinds READ kinds CONSTANT)
  Q_PROPERTY(QString title READ title NOTIFY shownChanged)
  Q_PROPERTY(QString about READ about NOTIFY shownChanged)
  Q_PROPERTY(QString submitLabel READ submitLabel NOTIFY shownChanged)
  Q_PROPERTY(QString differs READ differs NOTIFY shownChanged)
  Q_PROPERTY(QString problem READ problem NOTIFY typed)
  Q_PROPERTY(QString summary READ summary NOTIFY typed)
  Q_PROPERTY(QString countText READ countText NOTIFY typed)
  Q_PROPERTY(bool canAdd READ canAdd NOTIFY typed)
  Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY typed)
  Q_PROPERTY(QStringList days READ days NOTIFY typed)
  Q_PROPERTY(QVariantList series READ series NOTIFY typed)
  Q_PROPERTY(QStringList dayNotes READ dayNotes NOTIFY typed)
  Q_PROPERTY(int today READ today NOTIFY typed)
  Q_PROPERTY(orv::Recovery* recovery READ recovery CONSTANT)

 public:
  struct Opening {
    QString title;
    /// What the stages are of, and when they count.
    QString about;
    QString submitLabel;
    /// "roadmap" or "template", as a conflict calls it.
    QString thing;
    /// Names what is typed in the journal.
    QString key;
    QList<RoadmapStage> stages;
    std::optional<qint64> version = {};
    /// When they begin, for the curve.
    QDate from;
    /// Where they are now, for the curve; none for stages that have not begun.
    QDate today = {};
    /// What the accounts differ in, which a save makes the same; empty for nothing.
    QString differs = {};
    std::function<void(QList<RoadmapStage>)> submit;
  };

  explicit RoadmapEditor(WorkspaceContext& context);

  void open(Opening opening);

  StageRows* stages() { return &m_rows; }
  static QList<Choice> kinds();
  const QString& title() const { return m_opening.title; }
  const QString& about() const { return m_opening.about; }
  const QString& submitLabel() const { return m_opening.submitLabel; }
  const QString& differs() const { return m_opening.differs; }
  QString problem() const { return m_problem ? m_problem->message : QString(); }
  /// "42 days · ends at 15 warm-up and 40 campaign a day"; empty without a stage.
  QString summary() const;
  QString countText() const;
  bool canAdd() const { return m_typed.size() < RoadmapRules::mostStages; }
  bool canSubmit() const { return !busy() && !m_problem && !m_typed.isEmpty(); }
  /// The curve day by day, as far as the stages can be read.
  const QStringList& days() const { return m_days; }
  const QVariantList& series() const { return m_series; }
  const QStringList& dayNotes() const { return m_dayNotes; }
  /// The number of today among the days; -1 where it is none.
  int today() const { return m_today; }
  std::optional<qint64> version() const { return m_opening.version; }
  Recovery* recovery() { return &m_recovery; }
  /// What stands typed in it, also while the page that opened it is not on the screen; empty for nothing.
  QStringList unsavedWork() const;
  /// Its page is left: with nothing typed it is not to stand there when the person comes back.
  void leave();
  const QList<TypedStage>& typedStages() const { return m_typed; }

  /// By the row's id and the field's name in it.
  Q_INVOKABLE void set(const QString& id, const QString& field, const QString& text);
  Q_INVOKABLE void add();
  Q_INVOKABLE void remove(const QString& id);
  Q_INVOKABLE void submit();

  /// The error as this form says it: of a conflict, that somebody else was faster.
  QString sentenceOf(const APIError& error) const;

 Q_SIGNALS:
  void shownChanged();
  void typed();

 private:
  void take(QList<TypedStage> stages);
  void keep();
  void restored();
  void follow();
  void draw();

  Opening m_opening;
  QList<TypedStage> m_typed;
  QStringList m_ids;
  int m_lastId = 0;
  std::optional<RoadmapProblem> m_problem;
  QStringList m_days;
  QVariantList m_series;
  QStringList m_dayNotes;
  int m_today = -1;
  StageRows m_rows;
  DraftOf<EditedStages> m_draft;
  Recovery m_recovery;
  bool m_keeps = false;
};

}  // namespace orv
