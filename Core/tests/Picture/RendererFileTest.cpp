// The Renderer's files: each format written and read back, and the ways writing can fail.
#include "Picture/Renderer.h"

#include "PictureTestSupport.h"

#include "Data/ColorMaterialProperty.h"
#include "Data/PolygonGraphics.h"
#include "Picture/PictureError.h"

#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

namespace {

using keo::Color;
using keo::Entity;
using keo::Picture::PictureError;
using keo::Picture::Renderer;
using namespace keo::Picture::test;

// A file name in a fresh temporary directory, removed with the directory at the end.
class TempDir {
public:
    TempDir() {
        char pattern[] = "/tmp/keoPictureTestXXXXXX";
        const char* made = mkdtemp(pattern);
        dir_ = made != nullptr ? made : "/tmp";
    }
    ~TempDir() { std::system(("rm -rf '" + dir_ + "'").c_str()); }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    std::string file(const std::string& name) const { return dir_ + "/" + name; }

private:
    std::string dir_;
};

std::string readAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool exists(const std::string& path) {
    return access(path.c_str(), F_OK) == 0;
}

// Three red squares side by side.
std::vector<std::shared_ptr<Entity>> threeSquares() {
    std::vector<std::shared_ptr<Entity>> squares;
    for (const double east : {-300.0, 0.0, 300.0}) {
        auto polygon = std::make_shared<keo::PolygonGraphics>();
        polygon->setHierarchy(keo::PolygonHierarchy({at(east - 100, -100), at(east + 100, -100),
                                                     at(east + 100, 100), at(east - 100, 100)}));
        polygon->setMaterial(std::make_shared<keo::ColorMaterialProperty>(Color::RED));
        squares.push_back(entityWith(polygon));
    }
    return squares;
}

std::uint32_t bigEndian(const std::string& bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value = (value << 8) | static_cast<unsigned char>(bytes[at + i]);
    }
    return value;
}

TEST(RendererFileTest, APngFileHasTheAskedSize) {
    const TempDir dir;
    const auto squares = threeSquares();
    const auto report =
        Renderer(smallOptions(320, 240)).writeFile(dir.file("a.png"), pointers(squares));
    const std::string bytes = readAll(dir.file("a.png"));
    ASSERT_GT(bytes.size(), 24u);
    EXPECT_EQ(bytes.substr(1, 3), "PNG");
    // The header chunk's width and height.
    EXPECT_EQ(bigEndian(bytes, 16), 320u);
    EXPECT_EQ(bigEndian(bytes, 20), 240u);
    EXPECT_EQ(report.drawn, 3u);
}

// The elements named @p name under @p node whose style attribute contains @p style.
int countElements(xmlNode* node, const char* name, const std::string& style) {
    int count = 0;
    for (xmlNode* child = node; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE &&
            xmlStrcmp(child->name, reinterpret_cast<const xmlChar*>(name)) == 0) {
            xmlChar* value = xmlGetProp(child, reinterpret_cast<const xmlChar*>("style"));
            const std::string text = value != nullptr ? reinterpret_cast<const char*>(value) : "";
            xmlFree(value);
            count += text.find(style) != std::string::npos ? 1 : 0;
        }
        count += countElements(child->children, name, style);
    }
    return count;
}

TEST(RendererFileTest, AnSvgFileParsesBackWithOneRedPathPerSquare) {
    const TempDir dir;
    const auto squares = threeSquares();
    Renderer(smallOptions(300, 150)).writeFile(dir.file("a.svg"), pointers(squares));
    xmlDoc* document = xmlReadFile(dir.file("a.svg").c_str(), nullptr, XML_PARSE_NONET);
    ASSERT_NE(document, nullptr) << "not well-formed";
    xmlNode* root = xmlDocGetRootElement(document);
    EXPECT_STREQ(reinterpret_cast<const char*>(root->name), "svg");
    xmlChar* width = xmlGetProp(root, reinterpret_cast<const xmlChar*>("width"));
    EXPECT_STREQ(reinterpret_cast<const char*>(width), "300pt");
    xmlFree(width);
    EXPECT_EQ(countElements(root, "path", "fill:rgb(100%,0%,0%)"), 3);
    xmlFreeDoc(document);
}

// What pdfinfo says the page size of @p path is ("W x H pts"), or empty.
std::string pdfPageSize(const std::string& path) {
    std::FILE* pipe = popen(("pdfinfo '" + path + "' 2>&1").c_str(), "r");
    if (pipe == nullptr) {
        return "";
    }
    std::array<char, 256> line{};
    std::string size;
    while (std::fgets(line.data(), static_cast<int>(line.size()), pipe) != nullptr) {
        const std::string text(line.data());
        if (text.rfind("Page size:", 0) == 0) {
            const std::size_t start = text.find_first_not_of(' ', 10);
            size = text.substr(start, text.find(" pts") + 4 - start);
        }
    }
    pclose(pipe);
    return size;
}

TEST(RendererFileTest, APdfFileHasOnePageOfTheAskedSize) {
    const TempDir dir;
    const auto squares = threeSquares();
    Renderer(smallOptions(420, 297)).writeFile(dir.file("a.pdf"), pointers(squares));
    EXPECT_EQ(pdfPageSize(dir.file("a.pdf")), "420 x 297 pts");
}

TEST(RendererFileTest, AnUnknownExtensionIsRefusedBeforeAnythingIsWritten) {
    const TempDir dir;
    try {
        Renderer(smallOptions()).writeFile(dir.file("a.jpg"), {});
        FAIL() << "no error";
    } catch (const PictureError& error) {
        EXPECT_EQ(std::string(error.what()), "cannot tell the format of '" + dir.file("a.jpg") +
                                                 "': the file name must end in .png, .svg or .pdf");
    }
    EXPECT_FALSE(exists(dir.file("a.jpg")));
}

TEST(RendererFileTest, AnUnwritablePathIsRefusedWithTheSystemsReason) {
    try {
        Renderer(smallOptions()).writeFile("/nonexistent/dir/a.png", {});
        FAIL() << "no error";
    } catch (const PictureError& error) {
        EXPECT_STREQ(error.what(),
                     "cannot open '/nonexistent/dir/a.png' for writing: No such file or directory");
    }
}

TEST(RendererFileTest, AFullDeviceFailsTheWriteAfterDrawing) {
    for (const auto format : {keo::Picture::Format::Png, keo::Picture::Format::Pdf}) {
        try {
            Renderer(smallOptions()).writeFile("/dev/full", format, {});
            FAIL() << "no error";
        } catch (const PictureError& error) {
            EXPECT_EQ(
                std::string(error.what()).rfind("could not write the picture to '/dev/full'", 0),
                0u)
                << error.what();
        }
    }
}

TEST(RendererFileTest, TheFormatCanBeGivenWhateverTheExtension) {
    const TempDir dir;
    Renderer(smallOptions()).writeFile(dir.file("picture.out"), keo::Picture::Format::Svg, {});
    EXPECT_EQ(readAll(dir.file("picture.out")).find("<svg") != std::string::npos, true);
}

} // namespace
