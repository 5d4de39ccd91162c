// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the log: in the desktop's program for text files, and where there is none in a viewer of
// our own.
#pragma once

#include <QDialog>
#include <QFile>
#include <QTimer>

#include <functional>

class QLineEdit;
class QPlainTextEdit;

// path: an existing file. Returns at once; onFailure is called when neither could show it.
void showLogFile(const QString& path, QWidget* parent, const std::function<void()>& onFailure);

class DBCLogViewer : public QDialog {
    Q_OBJECT
public:
    // The end of the file, at most tailLength bytes of it, and what is written to it later.
    DBCLogViewer(const QString& path, QWidget* parent);

    bool isReadable() const { return _file.isOpen(); }

    static constexpr qint64 tailLength = 0x200000; // bytes

private:
    void makeControls();
    void readOn();
    void findNext();

    QFile _file;
    QPlainTextEdit* _text; // owned by the dialog
    QLineEdit* _wanted; // owned by the dialog
    QTimer _readTimer;
};
