// SPDX-License-Identifier: GPL-3.0-or-later
// The button that opens the report about the last run. While there is no report the button is
// hidden but keeps its place, so that nothing moves when it appears.
#pragma once

#include <QPushButton>

class DBCMessageArea;
struct DBCEvent;

class DBCReportLink : public QPushButton {
    Q_OBJECT
public:
    explicit DBCReportLink(QWidget* parent = nullptr);

    // finished is the last event of a run. If cards had warnings or errors, their number is added
    // to the text of messageArea.
    void offer(const DBCEvent& finished, DBCMessageArea& messageArea);
    // Hides the button and forgets the report.
    void takeBack();

private:
    void openReport();

    QString _path;
};
