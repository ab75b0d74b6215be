#pragma once

#include <QLoggingCategory>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QTest>

namespace orv::ui {

/// A warning fails the test function that it comes in; to be called in its init().
inline void failOnWarnings() {
  // Refused answers are what some tests are about, and the transport's log says each of them.
  QLoggingCategory::setFilterRules(QStringLiteral("orvella.*.warning=false"));
  // The one that is let pass the toolkit gives of itself, now and then, on a busy machine.
  QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!QUnifiedTimer::stopAnimationDriver).")));
}

/// The same for tests written in QML, whose functions begin where no C++ is called.
inline void failOnWarnings(QQmlEngine& engine) {
  QObject::connect(&engine, &QQmlEngine::warnings, &engine, [](const QList<QQmlError>& warnings) {
    for (const QQmlError& warning : warnings) QTest::qFail(qPrintable(warning.toString()), __FILE__, __LINE__);
  });
}

}  // namespace orv::ui
