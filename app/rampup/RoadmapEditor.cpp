#include "app/rampup/RoadmapEditor.h"

#include <cmath>

#include "app/rampup/RampupWords.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

ORV_DEFINE_ROW(StageRow)

namespace {

QVariantList asMaps(const QList<TypedStage>& stages) {
  QVariantList maps;
  for (const TypedStage& stage : stages) maps.append(valuesOf(stage));
  return maps;
}

QList<TypedStage> asStages(const QVariantList& maps) {
  QList<TypedStage> stages;
  for (const QVariant& map : maps) stages.append(fieldsOf<TypedStage>(map.toMap()));
  return stages;
}

/// The member of a stage by its name; null when there is none.
QString* fieldOf(TypedStage& stage, const QString& name) {
  QString* found = nullptr;
  boost::mp11::mp_for_each<RowMembers<TypedStage>>([&](auto member) {
    if (name == QLatin1String(member.name)) found = &(stage.*member.pointer);
  });
  return found;
}

}  // namespace

RoadmapEditor::RoadmapEditor(WorkspaceContext& context) : m_recovery(context, Recovery::of(m_draft)) {
  m_recovery.keep(*this, m_draft);
  connect(&m_draft, &FieldDraft::changed, this, &RoadmapEditor::restored);
  connect(this, &Form::changed, this, &RoadmapEditor::typed);
}

void RoadmapEditor::open(Opening opening) {
  m_opening = std::move(opening);
  QList<TypedStage> stages;
  for (const RoadmapStage& stage : m_opening.stages) stages.append(typedStage(stage));
  m_ids.clear();
  take(stages);
  m_draft.setKey(m_opening.key);
  m_draft.fill(EditedStages{asMaps(stages)}, m_opening.version);
  Q_EMIT shownChanged();
  show();
}

QList<Choice> RoadmapEditor::kinds() {
  QList<Choice> kinds;
  for (const QLatin1String key : {RoadmapStage::warmupOnly, RoadmapStage::slowRamp, RoadmapStage::full})
    kinds.append({.key = key, .label = RampupWords::kindLabel(key)});
  return kinds;
}

void RoadmapEditor::take(QList<TypedStage> stages) {
  m_typed = std::move(stages);
  while (m_ids.size() < m_typed.size()) m_ids.append(QString::number(++m_lastId));
  m_ids.resize(m_typed.size());
  follow();
}

void RoadmapEditor::follow() {
  m_problem = RoadmapRules::firstProblem(m_typed);
  std::vector<StageRow> rows;
  for (qsizetype at = 0; at < m_typed.size(); ++at) {
    const TypedStage& stage = m_typed[at];
    const bool isWrong = m_problem && m_problem->stage == at;
    rows.push_back({m_ids[at], stage.key, stage.name, stage.days, stage.warmupFrom, stage.warmupTo, stage.campaignFrom,
                    stage.campaignTo, isWrong ? m_problem->field : QString()});
  }
  m_rows.update(std::move(rows));
  draw();
  Q_EMIT typed();
}

void RoadmapEditor::keep() {
  m_keeps = true;
  m_draft.set(u"stages"_s, asMaps(m_typed));
  m_keeps = false;
  clearError();
}

/// The journal brought back, or the person threw away, what an earlier run left.
void RoadmapEditor::restored() {
  if (m_keeps) return;
  const QList<TypedStage> stages = asStages(m_draft.typed().stages);
  if (stages != m_typed) take(stages);
}

void RoadmapEditor::set(const QString& id, const QString& field, const QString& text) {
  const qsizetype at = m_ids.indexOf(id);
  if (at < 0) return;
  QString* const value = fieldOf(m_typed[at], field);
  if (!value || *value == text) return;
  *value = text;
  follow();
  keep();
}

/// Goes on where the last stage ends, as a kind that there is none of yet.
void RoadmapEditor::add() {
  if (!canAdd() || busy()) return;
  TypedStage stage{.days = u"7"_s};
  for (const Choice& kind : kinds()) {
    const bool isTaken = std::ranges::any_of(m_typed, [&kind](const auto& each) { return each.key == kind.key; });
    if (isTaken) continue;
    stage.key = kind.key;
    stage.name = kind.label;
    break;
  }
  if (stage.key.isEmpty()) {
    stage.key = RoadmapStage::full;
    stage.name = RampupWords::kindLabel(stage.key);
  }
  const TypedStage last = m_typed.isEmpty() ? TypedStage{.warmupTo = u"5"_s, .campaignTo = u"0"_s} : m_typed.last();
  stage.warmupFrom = stage.warmupTo = last.warmupTo;
  stage.campaignFrom = stage.campaignTo = last.campaignTo;
  take(m_typed + QList{stage});
  keep();
}

void RoadmapEditor::remove(const QString& id) {
  const qsizetype at = m_ids.indexOf(id);
  if (at < 0 || busy()) return;
  m_ids.removeAt(at);
  QList<TypedStage> stages = m_typed;
  stages.removeAt(at);
  take(stages);
  keep();
}

void RoadmapEditor::submit() {
  if (canSubmit() && m_opening.submit) m_opening.submit(readStages(m_typed));
}

QString RoadmapEditor::summary() const {
  if (m_typed.isEmpty()) return {};
  qint64 days = 0;
  for (const RoadmapStage& stage : readStages(m_typed)) days += stage.days;
  const RoadmapStage last = readStage(m_typed.last());
  return u"%1 days · ends at %2 warm-up and %3 campaign a day"_s.arg(days).arg(last.warmup.to).arg(last.campaign.to);
}

QString RoadmapEditor::countText() const {
  return u"%1 of %2 stages"_s.arg(m_typed.size()).arg(RoadmapRules::mostStages);
}

void RoadmapEditor::draw() {
  m_days.clear();
  m_dayNotes.clear();
  QVariantList warmup, campaign;
  qsizetype wrongFrom = -1, wrongTo = -1;
  const auto stages = readStages(m_typed);
  for (qsizetype at = 0; at < stages.size(); ++at) {
    const RoadmapStage& stage = stages[at];
    if (m_problem && m_problem->stage == at) {
      wrongFrom = m_days.size();
      wrongTo = std::min<qsizetype>(m_days.size() + stage.days, RoadmapRules::mostDays) - 1;
    }
    for (qint64 day = 1; day <= stage.days && m_days.size() < RoadmapRules::mostDays; ++day) {
      m_days.append(Format::calendarDay(m_opening.from.addDays(m_days.size())));
      m_dayNotes.append(RampupWords::stageDay(stage.name, day, stage.days));
      warmup.append(std::round(volumeOn(stage.warmup, day, stage.days)));
      campaign.append(std::round(volumeOn(stage.campaign, day, stage.days)));
    }
  }
  m_today = m_opening.today.isValid() ? int(m_days.indexOf(Format::calendarDay(m_opening.today))) : -1;
  const auto line = [&](const QString& key, const QString& label, const QVariantList& values) {
    return QVariantMap{{u"key"_s, key},
                       {u"label"_s, label},
                       {u"values"_s, values},
                       {u"wrongFrom"_s, wrongFrom},
                       {u"wrongTo"_s, wrongTo}};
  };
  m_series = {line(u"warmup"_s, u"Warm-up"_s, warmup), line(u"campaign"_s, u"Campaign"_s, campaign)};
}

QStringList RoadmapEditor::unsavedWork() const {
  if (!shown() || !m_draft.dirty()) return {};
  return {u"Changes to a "_s + m_opening.thing + u" that are not saved"_s};
}

void RoadmapEditor::leave() {
  if (!busy() && unsavedWork().isEmpty()) cancel();
}

QString RoadmapEditor::sentenceOf(const APIError& error) const {
  if (!isVersionConflict(error)) return error.message();
  return u"This "_s + m_opening.thing + u" changed since you opened it. Close and try again."_s;
}

}  // namespace orv
