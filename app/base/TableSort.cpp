#include "app/base/TableSort.h"

#include <QLocale>

namespace orv {

QCollator nameCollator() {
  // The C locale knows neither numbers nor cases.
  const QLocale locale = QLocale().collation();
  QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
  collator.setNumericMode(true);
  collator.setCaseSensitivity(Qt::CaseInsensitive);
  return collator;
}

}  // namespace orv
