// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

#include <string>

namespace Ui {
class SetShotPositionDialog;
}

/// Asks for the position of the shot that one generic traveltime file holds.
class SetShotPositionDialog : public QDialog
{
    Q_OBJECT

public:
    /// Shows the file's name (UTF-8) and, to start from, the position that the addresses hold; they
    /// are not kept.
    SetShotPositionDialog(std::string fileName, const double *shotX, const double *shotElevation,
                          QWidget *parent = nullptr);
    ~SetShotPositionDialog() override;

    /// Stores the position as typed. A text that is no number, with "." as its decimal point, is 0.
    void getShotPosition(double *shotX, double *shotElevation) const;

private:
    Ui::SetShotPositionDialog *ui;
};
