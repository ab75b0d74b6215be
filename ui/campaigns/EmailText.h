#pragma once

#include <QtQml/qqml.h>
#include <QColor>
#include <QPointF>
#include <QPointer>
#include <QQuickTextDocument>
#include <QTextFormat>

#include "app/campaigns/TextVariables.h"

class QTextDocument;

namespace orv {

/// What a text control needs to be the field of an email: its text to the last byte, colours for variables and spin
/// groups while somebody types, and changes that one undo takes back.
///
/// The control's own `text` turns some spaces into others, so nobody reads that. Its document knows one kind of line
/// end; the email's text has those that it came with.
class EmailText : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QQuickTextDocument* document READ document WRITE setDocument NOTIFY documentChanged)
  Q_PROPERTY(bool singleLine MEMBER m_singleLine NOTIFY documentChanged)
  Q_PROPERTY(QColor variableInk MEMBER m_variableInk WRITE setVariableInk NOTIFY coloursChanged)
  Q_PROPERTY(QColor variableGround MEMBER m_variableGround WRITE setVariableGround NOTIFY coloursChanged)
  Q_PROPERTY(QColor spinInk MEMBER m_spinInk WRITE setSpinInk NOTIFY coloursChanged)
  Q_PROPERTY(QColor spinGround MEMBER m_spinGround WRITE setSpinGround NOTIFY coloursChanged)
  Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)

 public:
  /// Of a layout's format: the colour of the ground, which EmailChips draws.
  static constexpr int groundProperty = QTextFormat::UserProperty;

  using QObject::QObject;

  QQuickTextDocument* document() const { return m_quickDocument; }
  void setDocument(QQuickTextDocument* document);
  void setVariableInk(const QColor& colour) { setColour(m_variableInk, colour); }
  void setVariableGround(const QColor& colour) { setColour(m_variableGround, colour); }
  void setSpinInk(const QColor& colour) { setColour(m_spinInk, colour); }
  void setSpinGround(const QColor& colour) { setColour(m_spinGround, colour); }
  bool isEmpty() const { return m_text.isEmpty(); }
  const QString& text() const { return m_text; }

  /// Another text, with a history of its own: none, or the one edit that made it of `before`.
  Q_INVOKABLE void show(const QString& text, const QString& before = {});
  /// The same text changed from outside, as one edit.
  Q_INVOKABLE void replaceAll(const QString& text);
  /// By the command's name; the new selection's start and end.
  Q_INVOKABLE QPointF format(const QString& command, int selectionStart, int selectionEnd);
  Q_INVOKABLE QPointF insertVariable(const QString& name, int selectionStart, int selectionEnd);
  /// What of a variable's name stands before the cursor; null while none is being typed.
  Q_INVOKABLE QVariant typedVariable(int cursor) const;
  /// Puts what is half composed in `control` into the text, where it was begun.
  Q_INVOKABLE void finishComposing(QObject* control);

 Q_SIGNALS:
  void documentChanged();
  void coloursChanged();
  void isEmptyChanged();
  /// Something else is set off, or in other colours.
  void marked();
  /// By the person, or by a change that they asked for.
  void edited(const QString& text);

 private:
  void setColour(QColor& colour, const QColor& value);
  void takeText();
  void joinLines();
  void highlight();
  QPointF apply(const TextEdit& edit);

  QPointer<QQuickTextDocument> m_quickDocument;
  QPointer<QTextDocument> m_document;
  QString m_text;
  /// The same as the text field has it.
  QString m_shown;
  bool m_singleLine = false;
  bool m_showing = false;
  bool m_colouring = false;
  QColor m_variableInk, m_variableGround, m_spinInk, m_spinGround;
};

}  // namespace orv
