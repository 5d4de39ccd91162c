// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the result text of an operation. The part that needs the user's attention comes first, in a
// red that is readable on light and dark windows. A screen reader gets both parts as one plain
// text.
#pragma once

#include <QLabel>

class DBCMessageArea : public QLabel {
    Q_OBJECT
public:
    explicit DBCMessageArea(QWidget* parent = nullptr);

    void clearTexts();
    void showTexts(const QString& text);
    // Shows attention in red, and text below it.
    void showAttention(const QString& attention, const QString& text = {});
    // Appends text to the part that is not red.
    void appendText(const QString& text) { showAttention(_attention, _text + text); }
    bool hasText() const { return !_text.isEmpty(); }

    // Returns a red with a contrast of at least 4.5 to 1 against the window colour of the palette.
    static QColor attentionColor(const QPalette& palette);

protected:
    void changeEvent(QEvent* event) override;

private:
    void render();

    QString _attention;
    QString _text;
};
