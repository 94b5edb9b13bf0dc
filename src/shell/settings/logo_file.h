#pragma once

#include <QPixmap>
#include <filesystem>
#include <string>

namespace velmo::shell {

// "mylogo.jpg" in the program's folder, which is the current directory.
std::filesystem::path logoFile();

// The logo as large as fits, null without a file or when it is no picture.
QPixmap logoPicture(const QSize& largest);

// Makes the chosen file the logo, whatever it is called, when it holds a picture. Returns the sentence that says why
// not, empty when it was done; the former logo is kept then.
std::string replaceLogo(const std::filesystem::path& chosen);

// Removes the logo, if there is one; the sentence that says why not otherwise.
std::string removeLogo();

}  // namespace velmo::shell
