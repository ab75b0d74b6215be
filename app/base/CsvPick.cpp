#include "app/base/CsvPick.h"

#include <QFileInfo>

#include "app/base/shownName.h"
#include "kit/api/Format.h"
#include "kit/async/background.h"

using namespace Qt::Literals::StringLiterals;

namespace orv {

QString CsvPick::name() const { return shownName(QFileInfo(m_path).fileName()); }

QString CsvPick::facts() const {
  if (m_preview.headers.isEmpty()) return {};
  return megabytes(m_preview.file.bytes) + u" · "_s +
         Format::counted(m_preview.headers.size(), u"column"_s, u"columns"_s);
}

void CsvPick::choose() { m_choose.start(chooseTask()); }

Task<void> CsvPick::chooseTask() {
  const auto path = co_await m_panel.openFile(u"Comma-separated text"_s, u"csv"_s);
  if (path) Q_EMIT chosen(*path);
}

void CsvPick::look(const QString& path) {
  m_path = path;
  m_preview = {};
  m_isLooking = true;
  m_look.start(lookTask(path));
  Q_EMIT changed();
}

Task<void> CsvPick::lookTask(QString path) {
  m_preview = co_await inBackground<CsvPreview>([path] { return previewCsv(path); });
  m_isLooking = false;
  Q_EMIT looked();
  Q_EMIT changed();
}

void CsvPick::clear() {
  m_look.cancel();
  m_isLooking = false;
  m_path.clear();
  m_preview = {};
  Q_EMIT changed();
}

}  // namespace orv
