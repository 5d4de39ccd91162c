// SPDX-License-Identifier: GPL-3.0-or-later
// The result text of an operation. What needs attention stands first and in red, readable on a
// light and on a dark window; a screen reader gets all of it as one plain text.
#pragma once

#include <QLabel>

class DBCMessageArea : public QLabel {
    Q_OBJECT
public:
    explicit DBCMessageArea(QWidget* parent = nullptr);

    void clearTexts();
    void showTexts(const QString& text);
    // attention comes before text on lines of its own.
    void showAttention(const QString& attention, const QString& text = {});
    // Goes on where the text without the attention ends.
    void appendText(const QString& text) { showAttention(_attention, _text + text); }
    bool hasText() const { return !_text.isEmpty(); }

    // Red with a contrast of at least 4.5 to 1 against the palette's window colour.
    static QColor attentionColor(const QPalette& palette);

protected:
    void changeEvent(QEvent* event) override;

private:
    void render();

    QString _attention;
    QString _text;
};
