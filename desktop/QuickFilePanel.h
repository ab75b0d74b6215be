#pragma once

#include <QObject>
#include <QUrl>

#include "app/shell/desktop/FilePanel.h"
#include "kit/async/OneShot.h"

namespace orv {

/// The desktop's own save panel, which a QML file dialog opens. One question at a time; a new one cancels the last.
class QuickFilePanel final : public QObject, public FilePanel {
  Q_OBJECT
  Q_PROPERTY(bool asking READ asking NOTIFY changed)
  Q_PROPERTY(QUrl folder READ folder NOTIFY changed)
  Q_PROPERTY(QUrl suggestion READ suggestion NOTIFY changed)
  Q_PROPERTY(QString nameFilter READ nameFilter NOTIFY changed)
  Q_PROPERTY(QString suffix READ suffix NOTIFY changed)

 public:
  using QObject::QObject;

  Task<std::optional<ChosenFile>> saveFile(QString suggestedName, QString kind, QString suffix) override;

  bool asking() const { return m_answer.has_value(); }
  /// The suggested file, in the folder last saved to.
  /// Where the panel opens.
  QUrl folder() const { return QUrl::fromLocalFile(m_folder); }
  QUrl suggestion() const { return m_suggestion; }
  QString nameFilter() const { return m_nameFilter; }
  QString suffix() const { return m_suffix; }

  /// `mayReplace` when the panel itself asks before a file is replaced.
  Q_INVOKABLE void choose(const QUrl& file, bool mayReplace);
  Q_INVOKABLE void cancel();

 Q_SIGNALS:
  void changed();

 private:
  using Answer = OneShot<std::optional<ChosenFile>>;
  void give(std::optional<ChosenFile> file);

  std::optional<Answer> m_answer;
  QUrl m_suggestion;
  QString m_nameFilter;
  QString m_suffix;
  QString m_folder;
};

}  // namespace orv
