// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QString>

#include <string>
#include <vector>

namespace Ui {
class Convert2VelarixDialog;
}

class QLabel;
class QLineEdit;

/// The converter window: a page for each family of conversions, "Convert" and "Quit". The slots are
/// connected by the names of the form's buttons.
class Convert2VelarixDialog : public QDialog
{
    Q_OBJECT

public:
    explicit Convert2VelarixDialog(QWidget *parent = nullptr);
    ~Convert2VelarixDialog() override;

private slots:
    void on_convertButton_clicked();
    void on_browseInputButton_clicked();
    void on_browseOutputButton_clicked();
    void on_quitButton_clicked();
    void on_pushButton_clicked();
    void on_browseInputButton_3_clicked();
    void on_browseOutputButton_3_clicked();

private:
    void browseTraveltimes(const QString &filters, bool several, QLineEdit *edit, QLabel *format);
    void rememberFiles(const QStringList &names, QLineEdit *edit);
    void browseOutput(QLineEdit *edit);
    void convertShownPage();
    void convertSeismic();
    void convertStructured();
    void convertGeneric();

    Ui::Convert2VelarixDialog *ui;
    std::string inputFileName;
    std::string outputFileName;
    QString selectedFilter; ///< last chosen in any page's input dialog: it decides the format
    std::vector<std::string> inputFileNames; ///< last chosen on the generic or structured page
};
