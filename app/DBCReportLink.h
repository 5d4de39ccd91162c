// SPDX-License-Identifier: GPL-3.0-or-later
// The button that opens the report about the last run. While there is no report, the button is
// hidden but keeps its place in the layout, so that no other control moves when the button appears.
#pragma once

#include <QPushButton>

class DBCMessageArea;
struct DBCEvent;

class DBCReportLink : public QPushButton {
    Q_OBJECT
public:
    explicit DBCReportLink(QWidget* parent = nullptr);

    // Shows the button if the run made a report. finished is the last event of the run. If cards
    // had warnings or errors, adds the number of these cards to the text of messageArea.
    void offer(const DBCEvent& finished, DBCMessageArea& messageArea);
    // Hides the button and forgets the report.
    void takeBack();

private:
    void openReport();

    QString _path;
};
