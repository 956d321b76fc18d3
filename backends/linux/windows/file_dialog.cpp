// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/windows/file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileSystemModel>
#include <QLocale>
#include <QMessageBox>
#include <QSortFilterProxyModel>
#include <QTemporaryDir>
#include <QUrl>
#include <algorithm>
#include <vector>

#include "linux/launch/installed_applications.h"
#include "linux/launch/program_search.h"
#include "linux/windows/look.h"

namespace corvane::linux_desktop {
namespace {

bool CanBeStarted(const QFileInfo& file) {
    if (!file.isFile()) return false;
    return file.isExecutable() || file.suffix().compare("exe", Qt::CaseInsensitive) == 0 ||
           QFileInfo(file.canonicalFilePath()).suffix() == "desktop";
}

/// One choice of the filter box.
struct FileFilter {
    QString caption;
    QString with_pattern;  ///< as Qt wants to be given it
    bool programs = false;
};

std::vector<FileFilter> FiltersOf(const std::string& filter) {
    std::vector<FileFilter> filters;
    const QStringList parts = Words(filter).split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // What stands in the caption's parentheses are patterns to Qt, so it goes; ";" parts them.
        const QString caption = parts[i].section(u'(', 0, 0).trimmed();
        QString pattern = parts[i + 1];
        pattern.replace(u';', u' ').replace("*.*", "*");
        const bool programs = pattern == "*.exe";
        filters.push_back({caption, caption + " (" + (programs ? "*" : pattern) + ")", programs});
    }
    return filters;
}

/// Lets folders and, while it is asked to, only such files through as can be started.
class ProgramFilter final : public QSortFilterProxyModel {
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void SetProgramsOnly(bool programs_only) {
        programs_only_ = programs_only;
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
        if (!programs_only_ || files == nullptr) return true;
        // The model's own knowledge of a file may come later than the file's row.
        const QFileInfo file(files->filePath(files->index(row, 0, parent)));
        return file.isDir() || CanBeStarted(file);
    }

private:
    bool programs_only_ = false;
};

/// Gives every file a kind. Qt's model of a folder never shows a file whose kind has no name, and
/// where no MIME types are installed that is every file.
class FileKinds final : public QFileIconProvider {
public:
    [[nodiscard]] QString type(const QFileInfo& file) const override {
        const QString kind = QFileIconProvider::type(file);
        return kind.isEmpty() ? QFileDialog::tr("File") : kind;
    }
};

/// A folder of links, one for each installed application, under the name that people know it by.
class ApplicationsFolder {
public:
    ApplicationsFolder() {
        QDir folder(folder_.path());
        folder.mkdir("Applications");
        folder.cd("Applications");
        path_ = folder.path();
        const auto applications = InstalledApplications(SearchPlaces::OfEnvironment(),
                                                        QLocale::system().name().toStdString());
        for (const InstalledApplication& application : applications) {
            QString name = Words(application.name);
            name.replace(u'/', u'\u2215');
            const QString target = Words(application.entry);
            // Two may have one name; the second then shows whose it is.
            if (!QFile::link(target, folder.filePath(name)))
                QFile::link(target, folder.filePath(name + " (" +
                                                    QFileInfo(target).completeBaseName() + ")"));
        }
        empty_ = applications.empty();
    }

    [[nodiscard]] const QString& path() const { return path_; }
    [[nodiscard]] bool empty() const { return empty_; }
    /// The file that a link here stands for, and any other file itself.
    [[nodiscard]] QString Resolved(const QString& file) const {
        return QFileInfo(file).path() == path_ ? QFileInfo(file).symLinkTarget() : file;
    }

private:
    QTemporaryDir folder_;
    QString path_;
    bool empty_ = true;
};

class FileDialog final : public QFileDialog {
public:
    /// `kinds` outlives the dialog.
    FileDialog(const FileDialogRequest& request, FileKinds& kinds, QWidget* holder)
        : QFileDialog(holder, Words(request.title)),
          filters_(FiltersOf(request.filter)),
          path_must_exist_((request.flags & kPathMustExist) != 0) {
        // The desktop's own dialog would know nothing of what can be started.
        setOption(DontUseNativeDialog);
        setOption(HideNameFilterDetails);
        setOption(DontResolveSymlinks);
        setAcceptMode(AcceptOpen);
        setFileMode((request.flags & kFileMustExist) != 0 ? ExistingFile : AnyFile);
        setIconProvider(&kinds);
        setProxyModel(&program_filter_);
        QStringList captions;
        for (const FileFilter& filter : filters_) captions.push_back(filter.with_pattern);
        if (captions.isEmpty()) return;
        setNameFilters(captions);
        connect(this, &QFileDialog::filterSelected, this, [this] { FollowFilter(); });
        selectNameFilter(captions.value(request.filter_index - 1, captions.first()));
        FollowFilter();
    }
    ~FileDialog() override { setProxyModel(nullptr); }
    FileDialog(const FileDialog&) = delete;
    FileDialog& operator=(const FileDialog&) = delete;

    [[nodiscard]] bool AsksForPrograms() const {
        return std::ranges::any_of(filters_, &FileFilter::programs);
    }

protected:
    void accept() override {
        const QString file = selectedFiles().value(0);
        if (path_must_exist_ && !QFileInfo(file).dir().exists()) {
            QMessageBox::warning(this, windowTitle(),
                                 tr("%1\nThe folder does not exist.").arg(file));
            return;
        }
        QFileDialog::accept();
    }

private:
    void FollowFilter() {
        // Without its details a filter is told by its caption alone.
        const auto filter = std::ranges::find(filters_, selectedNameFilter(), &FileFilter::caption);
        program_filter_.SetProgramsOnly(filter != filters_.end() && filter->programs);
    }

    ProgramFilter program_filter_;
    std::vector<FileFilter> filters_;
    bool path_must_exist_;
};

QList<QUrl> Places(const QString& first) {
    QList<QUrl> places;
    for (const QString& path : {first, QDir::homePath(), QString("/usr/bin"), QString("/")})
        if (QDir(path).exists()) places.push_back(QUrl::fromLocalFile(path));
    return places;
}

}  // namespace

std::optional<std::string> ChooseFile(const FileDialogRequest& request, QWidget* holder) {
    FileKinds kinds;
    FileDialog dialog(request, kinds, holder);
    std::optional<ApplicationsFolder> applications;
    if (dialog.AsksForPrograms()) {
        applications.emplace();
        dialog.setSidebarUrls(Places(applications->path()));
        dialog.setDirectory(applications->empty() ? "/usr/bin" : applications->path());
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    QString file = dialog.selectedFiles().first();
    if (applications) {
        file = applications->Resolved(file);
        if (CanBeStarted(QFileInfo(file)) && !file.endsWith(".exe", Qt::CaseInsensitive))
            file += ".exe";
    }
    return file.toStdString();
}

}  // namespace corvane::linux_desktop
