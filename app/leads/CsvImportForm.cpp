#include "app/leads/CsvImportForm.h"

#include <QFileInfo>
#include <QUrl>

#include "app/base/shownName.h"
#include "app/leads/LeadImportFields.h"
#include "app/leads/LeadImportJob.h"
#include "kit/api/Format.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {
namespace {

/// The service's lists are not named at greater length.
constexpr qsizetype longestName = 120;

QString nameFor(const QString& path) {
  QString name = QFileInfo(path).completeBaseName().trimmed().left(longestName);
  if (!name.isEmpty() && name.back().isHighSurrogate()) name.chop(1);
  return name;
}

}  // namespace

CsvImportForm::CsvImportForm(WorkspaceContext& context, Store& whole)
    : Store(context, &whole),
      m_file(context.services().filePanel),
      m_list(*this, true),
      m_kept(
          context, m_form, [this] { return fields(); }, [this](const CsvImportFields& kept) { fill(kept); }) {
  connect(this, &CsvImportForm::changed, m_kept.recovery(), [this] { m_kept.follow(); });
  connect(&m_file, &CsvPick::changed, this, &CsvImportForm::changed);
  connect(&m_file, &CsvPick::chosen, this, &CsvImportForm::setFile);
  connect(&m_file, &CsvPick::looked, this, &CsvImportForm::looked);
  connect(&m_list, &LeadListPicker::changed, this, &CsvImportForm::changed);
  connect(&m_form, &Form::changed, this, &CsvImportForm::changed);
}

QList<Choice> CsvImportForm::targets() { return LeadImportFields::choices(); }

QString CsvImportForm::matchedText() const {
  const int columns = m_columns.count();
  return columns == 0 ? QString()
                      : Format::grouped(m_columns.matched()) + u" of "_s + Format::grouped(columns) + u" matched"_s;
}

QString CsvImportForm::sampledText() const {
  const qsizetype rows = m_file.preview().samples.size();
  return rows == 0 ? QString() : u"From the first "_s + Format::counted(rows, u"row"_s, u"rows"_s);
}

QString CsvImportForm::need() const {
  if (!m_file.isUsable()) return u"Choose a CSV with an email column"_s;
  return m_columns.hasEmail() ? QString() : u"Pick the email column"_s;
}

QString CsvImportForm::nameError() const {
  return m_file.isUsable() && !m_list.isChosen() ? u"Name the new list"_s : QString();
}

bool CsvImportForm::canSubmit() const { return !m_form.busy() && need().isEmpty() && m_list.isChosen(); }

void CsvImportForm::showFor(const QString& listId) {
  if (!canWrite() || m_form.showRunning()) return;
  m_file.clear();
  m_columns.propose({});
  m_list.startWith(listId.isEmpty() ? QString(LeadListPicker::makeNew) : listId);
  m_kept.open(u"leads/tab:lists/import"_s);
  m_form.show();
}

CsvImportFields CsvImportForm::fields() const {
  return {m_file.path(), m_columns.mapping(), m_list.isNew() ? m_list.newName() : QString()};
}

void CsvImportForm::fill(const CsvImportFields& fields) {
  if (fields.path.isEmpty()) {
    m_file.clear();
    m_columns.propose({});
    m_form.clearError();
  } else if (fields.path != m_file.path()) {
    setFile(fields.path);
    m_wanted = fields.mapping;
  }
  m_list.takeName(fields.listName);
}

void CsvImportForm::setFile(const QString& path) {
  if (!m_form.shown()) show();
  if (!m_form.shown() || m_form.busy()) return;
  m_wanted.clear();
  m_columns.propose({});
  m_form.clearError();
  m_file.look(path);
}

void CsvImportForm::looked() {
  m_columns.propose(m_file.preview());
  // Another file may stand there by now.
  const QStringList wanted = std::exchange(m_wanted, {});
  if (wanted.size() == m_columns.mapping().size())
    for (int column = 0; column < wanted.size(); ++column) m_columns.set(column, wanted[column]);
  if (const QString error = m_file.preview().error; !error.isEmpty())
    m_form.begin().fail(error);
  else
    m_list.proposeName(nameFor(m_file.path()));
  Q_EMIT changed();
}

void CsvImportForm::setTarget(int column, const QString& target) {
  if (!m_form.busy() && m_columns.set(column, target)) Q_EMIT changed();
}

void CsvImportForm::submit() {
  if (!canSubmit()) return;
  LeadImportBatch batch{
      .file = {m_file.path(), m_file.preview().file}, .mapping = m_columns.mapping(), .listId = {}, .listName = {}};
  if (m_list.isNew())
    batch.listName = m_list.newName().trimmed();
  else if (!m_list.current().isEmpty())
    batch.listId = m_list.current();
  m_form.run(
      context(), u"Importing "_s + shownName(m_file.name()),
      u"Stopped. The file may have arrived: see Import history."_s,
      [batch](Job& job) { return importLeads(&job, batch); },
      [this](Job& job, bool isShown) {
        if (!job.failed() && isShown) Q_EMIT started();
        return false;
      });
}

void CsvImportForm::close() {
  m_kept.leave();
  m_form.letGo();
  m_file.clear();
  Store::close();
}

}  // namespace orv
