// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "app/convert2velarix_dialog.h"

#include "app/set_shot_position_dialog.h"
#include "seg2/dolang_conversion.h"
#include "seg2/su_conversion.h"
#include "traveltime/drivers.h"
#include "traveltime/generic_text.h"
#include "ui_convert2velarix_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>

#include <cstdlib>
#include <iostream>

namespace {

// The file dialogs' name filters: the one chosen decides the format, so each is compared as it is
// shown. The blanks in the Dolang filter count.
constexpr char genericFilter[] = "Generic text file (*.txt)";
constexpr char seisImagerFilter[] = "SeisImager traveltimes (*.vs)";
constexpr char geogigaFilter[] = "Geogiga text file (*.txt)";
constexpr char winsismFilter[] = "Geo2X Winsism XYZ file (*.xyz)";
constexpr char suFilter[] = "Seismic Unix (*.su)";
constexpr char dolangFilter[] = "Dolang seismic file (*.*DT  )";
constexpr char otteFilter[] = "Opent traveltime exchange format (*.otte)";

/// The filters that a file dialog offers.
QByteArray offered(const QByteArrayList &filters)
{
    return filters.join(";;") + ";;All Files (*)";
}

} // namespace

Convert2VelarixDialog::Convert2VelarixDialog(QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::Convert2VelarixDialog)
{
    ui->setupUi(this);
}

Convert2VelarixDialog::~Convert2VelarixDialog()
{
    delete ui;
}

void Convert2VelarixDialog::on_browseInputButton_3_clicked()
{
    selectedFilter = tr(genericFilter);
    browseTraveltimes(tr(offered({genericFilter})), ui->multiTTFiles_3->isChecked(),
                      ui->inputGenTxt, ui->formatSelected_3);
}

void Convert2VelarixDialog::on_browseInputButton_clicked()
{
    selectedFilter = tr(geogigaFilter);
    browseTraveltimes(tr(offered({seisImagerFilter, geogigaFilter, winsismFilter})),
                      ui->multiTTFiles->isChecked(), ui->inputEdit, ui->formatSelected);
}

void Convert2VelarixDialog::on_pushButton_clicked()
{
    selectedFilter = tr(suFilter);
    const QString name =
        QFileDialog::getOpenFileName(this, tr("Input file"), QDir::homePath(),
                                     tr(offered({suFilter, dolangFilter})), &selectedFilter);
    // Qt lists filters with their runs of blanks squeezed; the Dolang filter keeps its own.
    if (selectedFilter == QString(dolangFilter).simplified())
        selectedFilter = tr(dolangFilter);
    if (!name.isEmpty()) {
        ui->inputSeismicEdit->setText(name);
        inputFileName = name.toStdString();
        ui->formatSeismicInput->setText(selectedFilter);
    }
}

void Convert2VelarixDialog::on_browseOutputButton_3_clicked()
{
    browseOutput(ui->outputGenTxt);
}

void Convert2VelarixDialog::on_browseOutputButton_clicked()
{
    browseOutput(ui->outputEdit);
}

void Convert2VelarixDialog::on_convertButton_clicked()
{
    try {
        convertShownPage();
    } catch (...) {
        std::cerr << tr("Something went wrong").toStdString() << std::endl;
        QMessageBox::warning(this, "Warning", tr("Ops... Conversion not completed"));
        return;
    }
    QMessageBox::information(this, "Info", tr("Conversion done"));
}

void Convert2VelarixDialog::on_quitButton_clicked()
{
    std::exit(0);
}

void Convert2VelarixDialog::browseTraveltimes(const QString &filters, bool several, QLineEdit *edit,
                                              QLabel *format)
{
    if (several) {
        rememberFiles(QFileDialog::getOpenFileNames(this, tr("Input file"), QDir::homePath(),
                                                    filters, &selectedFilter),
                      edit);
        format->setText(selectedFilter);
        return;
    }
    const QString name = QFileDialog::getOpenFileName(this, tr("Input file"), QDir::homePath(),
                                                      filters, &selectedFilter);
    if (!name.isEmpty()) {
        edit->setText(name);
        format->setText(selectedFilter);
    }
}

/// Remembers the files chosen, in the dialog's order. The text shown grows from the structured
/// page's input, so that page shows every name and the generic page the last one alone.
void Convert2VelarixDialog::rememberFiles(const QStringList &names, QLineEdit *edit)
{
    ui->inputEdit->setText("");
    inputFileNames.clear();
    for (const QString &name : names) {
        inputFileNames.push_back(name.toStdString());
        edit->setText(ui->inputEdit->text() + name + "; ");
    }
}

void Convert2VelarixDialog::browseOutput(QLineEdit *edit)
{
    const QString name = QFileDialog::getSaveFileName(this, tr("OTTE File"), QDir::homePath(),
                                                      tr(offered({otteFilter})));
    if (!name.isEmpty())
        edit->setText(name);
}

void Convert2VelarixDialog::convertShownPage()
{
    if (ui->page_2->isVisible())
        convertSeismic();
    else if (ui->page->isVisible())
        convertStructured();
    else if (ui->page_3->isVisible())
        convertGeneric();
}

void Convert2VelarixDialog::convertSeismic()
{
    if (selectedFilter == suFilter)
        convertSuToSeg2(inputFileName);
    else if (selectedFilter == dolangFilter)
        convertDolangToSeg2(beforeLastDot(inputFileName));
}

void Convert2VelarixDialog::convertStructured()
{
    inputFileName = ui->inputEdit->text().toStdString();
    outputFileName = ui->outputEdit->text().toStdString();
    if (selectedFilter == geogigaFilter)
        convertGeogiga(inputFileName, outputFileName);
    else if (selectedFilter == winsismFilter)
        convertWinsism(inputFileName, outputFileName);
    else if (selectedFilter == seisImagerFilter && ui->multiTTFiles->isChecked())
        convertSeisImagerFiles(inputFileNames, outputFileName);
    else if (selectedFilter == seisImagerFilter)
        convertSeisImager(inputFileName, outputFileName);
    else
        QMessageBox::warning(this, "Warning", tr("Ops... Input format not recognized"));
}

void Convert2VelarixDialog::convertGeneric()
{
    if (selectedFilter != genericFilter)
        return;
    std::vector<double> shotXs;
    std::vector<double> shotElevations;
    double shotX = 0.0;
    double shotElevation = 0.0;
    // By index and against the list's length of the moment: the dialogs run nested event loops.
    for (std::size_t i = 0; i < inputFileNames.size(); ++i) {
        SetShotPositionDialog dialog(inputFileNames[i], &shotX, &shotElevation);
        if (dialog.exec() != QDialog::Accepted)
            continue;
        dialog.getShotPosition(&shotX, &shotElevation);
        shotXs.push_back(shotX);
        shotElevations.push_back(shotElevation);
    }
    outputFileName = ui->outputGenTxt->text().toStdString();
    convertGenericText(inputFileNames, outputFileName, shotXs, shotElevations);
}
