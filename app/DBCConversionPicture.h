// SPDX-License-Identifier: GPL-3.0-or-later
// A small drawing of what goes where, in the colours of the palette and sharp at every scale. It
// only adorns the texts beside it, which say the same, and so says nothing to a screen reader.
#pragma once

#include <QWidget>

class DBCConversionPicture : public QWidget {
    Q_OBJECT
public:
    enum class Subject : quint8 {
        Export, // from the card database into a folder
        Import, // from a folder into the card database
        Downwards, // from what stands above to what stands below
    };
    explicit DBCConversionPicture(QWidget* parent = nullptr);

    void setSubject(Subject subject);
    QSize sizeHint() const override; // device-independent pixels

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Subject _subject = Subject::Downwards;
};
