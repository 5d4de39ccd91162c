// SPDX-License-Identifier: GPL-3.0-or-later
// A small drawing that shows the direction of an operation, in the colours of the palette and sharp
// at every scale. The texts beside the drawing say the same, so the drawing has no name for a
// screen reader.
#pragma once

#include <QWidget>

class DBCConversionPicture : public QWidget {
    Q_OBJECT
public:
    enum class Subject : quint8 {
        Export, // from the card database into a folder
        Import, // from a folder into the card database
        Downwards, // an arrow from the box above to the box below
    };
    explicit DBCConversionPicture(QWidget* parent = nullptr);

    void setSubject(Subject subject);
    QSize sizeHint() const override; // device-independent pixels

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Subject _subject = Subject::Downwards;
};
