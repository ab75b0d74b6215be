#pragma once

#include <QPointer>
#include <QQuickTextDocument>

class QTextDocument;

namespace orv {

/// Gives the lines of a text control the height that its type is set on, for which the control has no property. It is
/// no edit: undo knows nothing of it.
class TextLines : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickTextDocument* document READ document WRITE setDocument NOTIFY documentChanged)
  /// In pixels; 0 leaves the lines as their font has them.
  Q_PROPERTY(double height READ height WRITE setHeight NOTIFY heightChanged)

 public:
  using QObject::QObject;

  QQuickTextDocument* document() const { return m_quickDocument; }
  void setDocument(QQuickTextDocument* document);
  double height() const { return m_height; }
  void setHeight(double height);

 Q_SIGNALS:
  void documentChanged();
  void heightChanged();

 private:
  void apply();

  QPointer<QQuickTextDocument> m_quickDocument;
  QPointer<QTextDocument> m_document;
  double m_height = 0;
  bool m_applying = false;
};

}  // namespace orv
