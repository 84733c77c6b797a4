// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "app/set_shot_position_dialog.h"

#include "traveltime/text.h"
#include "ui_set_shot_position_dialog.h"

SetShotPositionDialog::SetShotPositionDialog(std::string fileName, const double *shotX,
                                             const double *shotElevation, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::SetShotPositionDialog)
{
    ui->setupUi(this);
    ui->fileNameLabel->setText(QString::fromStdString(fileName));
    ui->lineEdit->setText(QString::fromStdString(fixedNumber(*shotX)));
    ui->lineEdit_2->setText(QString::fromStdString(fixedNumber(*shotElevation)));
}

SetShotPositionDialog::~SetShotPositionDialog()
{
    delete ui;
}

void SetShotPositionDialog::getShotPosition(double *shotX, double *shotElevation) const
{
    *shotX = ui->lineEdit->text().toDouble();
    *shotElevation = ui->lineEdit_2->text().toDouble();
}
