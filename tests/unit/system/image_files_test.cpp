// Pictures written and read: every form, both formats, whole and by bands; bad files; targets that are whole or absent.
#include <gtest/gtest.h>

#include "tests/support/image_kit.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

namespace {

using namespace grxtest;

class ImageFilesTest : public testing::Test {
  protected:
    std::string path(const std::string& name) const { return folder_.text() + "/" + name; }
    std::string bytes_of(const std::string& name) const { return folder_.read(name); }
    std::size_t entries() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder_.text()), {}));
    }
    static INT read_bytes(const std::string& bytes, GRX_IMAGE* image) {
        return grx_lit_image_memoire(
            reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<INT>(bytes.size()), image);
    }
    void write_random(const std::string& name, INT width, INT height, INT bytes, INT colours = 256) {
        Image image;
        make_random(image, width, height, bytes, colours);
        ASSERT_EQ(grx_ecrit_image(path(name).c_str(), image.get(), GRX_IMAGE_SELON_NOM), 1);
    }
    TempDir folder_;
};

struct Form {
    const char* name;
    INT bytes, colours;
};
constexpr Form kForms[] = {{"a.png", 1, 256}, {"a.png", 1, 3}, {"a.png", 3, 0}, {"a.png", 4, 0}, {"a.bmp", 1, 256},
    {"a.bmp", 1, 3}, {"a.bmp", 3, 0}, {"a.bmp", 4, 0}};

TEST_F(ImageFilesTest, WhatIsWrittenReadsTheSame) {
    for (const Form& form : kForms)
        for (const INT width : {1, 2, 3, 5, 61, 64}) {
            const NoLeak no_leak;
            Image image, read;
            make_random(image, width, 7, form.bytes, form.colours);
            image->pixels_par_metre = 11811;
            ASSERT_EQ(grx_ecrit_image(path(form.name).c_str(), image.get(), GRX_IMAGE_SELON_NOM), 1);
            ASSERT_EQ(grx_lit_image(path(form.name).c_str(), read.get()), 1) << form.name << form.bytes;
            EXPECT_EQ(read->largeur, width);
            EXPECT_EQ(read->hauteur, 7);
            EXPECT_EQ(read->octets_par_pixel, form.bytes);
            EXPECT_EQ(read->nb_couleurs, form.colours);
            EXPECT_EQ(read->pixels_par_metre, 11811);
            EXPECT_EQ(read.rows(), image.rows()) << form.name << " " << form.bytes << " " << width;
            EXPECT_EQ(std::memcmp(read->palette, image->palette, static_cast<std::size_t>(4 * form.colours)), 0);
        }
    EXPECT_EQ(entries(), 2U) << "temporary files stay";
}

TEST_F(ImageFilesTest, TheFormWantedIsGiven) {
    for (const Form& form : kForms)
        for (const INT wanted : {3, 4}) {
            Image image, read(wanted);
            make_random(image, 13, 5, form.bytes, form.colours);
            ASSERT_EQ(grx_ecrit_image(path(form.name).c_str(), image.get(), GRX_IMAGE_SELON_NOM), 1);
            ASSERT_EQ(grx_lit_image(path(form.name).c_str(), read.get()), 1);
            ASSERT_EQ(read->octets_par_pixel, wanted);
            EXPECT_EQ(read->nb_couleurs, 0);
            const auto bytes = static_cast<std::size_t>(form.bytes);
            for (std::size_t i = 0; i < 13 * 5; ++i) {
                const unsigned char* const from = image->pixels + bytes * i;
                const unsigned char* const pixel = form.bytes == 1 ? image->palette[*from] : from;
                const unsigned alpha = form.bytes == 4 ? pixel[3] : 255;
                const unsigned char* const got = read->pixels + static_cast<std::size_t>(wanted) * i;
                for (std::size_t c = 0; c < 3; ++c) {
                    const unsigned laid = (pixel[c] * alpha + 255 * (255 - alpha) + 127) / 255;
                    EXPECT_NEAR(got[c], wanted == 3 ? laid : pixel[c], form.bytes == 4 && wanted == 3 ? 1 : 0);
                }
                if (wanted == 4) EXPECT_EQ(got[3], alpha);
            }
        }
}

TEST_F(ImageFilesTest, BandsAreTheWhole) {
    for (const Form& form : kForms) {
        const NoLeak no_leak;
        Image image, read;
        make_random(image, 17, 23, form.bytes, form.colours);
        const INT writer = grx_ouvre_ecriture_image(path(form.name).c_str(), image.get(), GRX_IMAGE_SELON_NOM);
        ASSERT_EQ(writer, 1);
        const auto row = static_cast<std::size_t>(17 * form.bytes);
        for (INT y = 0; y < 23; y += 5)
            ASSERT_EQ(grx_ecrit_bande_image(
                          writer, std::min<INT>(5, 23 - y), image->pixels + row * static_cast<std::size_t>(y)),
                1);
        EXPECT_EQ(grx_ecrit_bande_image(writer, 1, image->pixels), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_lit_bande_image(writer, 1, image->pixels), GRX_ECHEC_GENRE);
        ASSERT_EQ(grx_ferme_image(writer), 1);
        EXPECT_EQ(grx_ferme_image(writer), GRX_ECHEC_NUMERO);
        const INT reader = grx_ouvre_image(path(form.name).c_str(), read.get());
        ASSERT_EQ(reader, 1);
        EXPECT_EQ(read->pixels, nullptr);
        PictureRows rows(row * 30);
        INT y = 0;
        for (const INT asked : {1, 4, 7, 30}) {
            const INT got = grx_lit_bande_image(reader, asked, rows.data() + row * static_cast<std::size_t>(y));
            EXPECT_EQ(got, std::min(asked, 23 - y));
            y += got;
        }
        EXPECT_EQ(grx_lit_bande_image(reader, 1, rows.data()), 0);
        EXPECT_EQ(grx_ecrit_bande_image(reader, 1, rows.data()), GRX_ECHEC_GENRE);
        EXPECT_EQ(grx_ferme_image(reader), 1);
        rows.resize(row * 23);
        EXPECT_EQ(rows, image.rows());
    }
}

TEST_F(ImageFilesTest, NumbersAreLimitedAndGivenBack) {
    write_random("a.png", 4, 4, 3);
    Image image;
    for (INT i = 1; i <= GRX_IMAGES_OUVERTES_MAX; ++i)
        EXPECT_EQ(grx_ouvre_image(path("a.png").c_str(), image.get()), i);
    EXPECT_EQ(grx_ouvre_image(path("a.png").c_str(), image.get()), GRX_ECHEC_PLEIN);
    EXPECT_EQ(grx_ferme_image(3), 1);
    EXPECT_EQ(grx_ouvre_image(path("a.png").c_str(), image.get()), 3);
    for (INT i = 1; i <= GRX_IMAGES_OUVERTES_MAX; ++i) EXPECT_EQ(grx_abandonne_image(i), 1);
    EXPECT_EQ(grx_abandonne_image(1), GRX_ECHEC_NUMERO);
}

// --- bad files -----------------------------------------------------------------------------------------

TEST_F(ImageFilesTest, CutShortAtEveryByteIsRefused) {
    for (const Form& form : kForms) {
        write_random(form.name, 9, 6, form.bytes, form.colours);
        const std::string whole = bytes_of(form.name);
        const NoLeak no_leak;
        for (std::size_t length = 1; length < whole.size(); ++length) {
            Image read;
            EXPECT_EQ(read_bytes(whole.substr(0, length), read.get()), GRX_ECHEC_FORMAT) << form.name << " " << length;
            EXPECT_EQ(read->pixels, nullptr);
            EXPECT_EQ(read->largeur, 0);
        }
    }
}

void put_little(std::string& bytes, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(value >> 8 * i);
}

TEST_F(ImageFilesTest, BitmapsThatLieAreRefused) {
    write_random("a.bmp", 9, 6, 3);
    const std::string whole = bytes_of("a.bmp");
    struct Lie {
        std::size_t at;
        std::uint32_t value;
    };
    for (const Lie lie : {Lie{18, 0x80000000U}, Lie{18, 0x7FFFFFFFU}, Lie{18, 0}, Lie{22, 0}, Lie{22, 0x80000000U},
             Lie{22, 7}, Lie{22, 0xFFFFFFF9U}, Lie{10, 53}, Lie{10, 0xFFFFFFFFU}, Lie{14, 12}, Lie{14, 0xFFFFFFFFU},
             Lie{28, 16}, Lie{28, 0}, Lie{30, 1}, Lie{30, 3}}) {
        std::string bytes = whole;
        put_little(bytes, lie.at, lie.value);
        Image read;
        EXPECT_EQ(read_bytes(bytes, read.get()), GRX_ECHEC_FORMAT) << lie.at << " " << lie.value;
    }
    write_random("b.bmp", 9, 6, 1, 3);
    std::string bytes = bytes_of("b.bmp");
    bytes[bytes.size() - 1 - 3] = 3; // a place that the palette lacks: rows take 12 bytes
    Image read;
    EXPECT_EQ(read_bytes(bytes, read.get()), GRX_ECHEC_FORMAT);
}

TEST_F(ImageFilesTest, RowsFromAboveAreReadToo) {
    Image image, read;
    make_random(image, 5, 4, 3);
    ASSERT_EQ(grx_ecrit_image(path("a.bmp").c_str(), image.get(), GRX_IMAGE_BMP), 1);
    std::string bytes = bytes_of("a.bmp"), turned = bytes;
    for (std::size_t y = 0; y < 4; ++y) turned.replace(54 + 16 * y, 16, bytes, 54 + 16 * (3 - y), 16);
    put_little(turned, 22, static_cast<std::uint32_t>(-4));
    ASSERT_EQ(read_bytes(turned, read.get()), 1);
    EXPECT_EQ(read.rows(), image.rows());
}

TEST_F(ImageFilesTest, WhatIsNoFileIsRefusedAtOnce) {
    Image image, written;
    make_random(written, 2, 2, 3);
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    ASSERT_EQ(mkdir(path("folder").c_str(), 0700), 0);
    folder_.write("empty", "");
    folder_.write("text", "no picture at all");
    ASSERT_EQ(symlink("nowhere", path("loose").c_str()), 0);
    for (const char* const name : {"pipe", "folder", "not there", "loose", "a/b"}) {
        EXPECT_EQ(grx_lit_image(path(name).c_str(), image.get()), GRX_ECHEC_FICHIER) << name;
        EXPECT_EQ(grx_ouvre_image(path(name).c_str(), image.get()), GRX_ECHEC_FICHIER) << name;
    }
    EXPECT_EQ(grx_lit_image(path("empty").c_str(), image.get()), GRX_ECHEC_FORMAT);
    EXPECT_EQ(grx_lit_image(path("text").c_str(), image.get()), GRX_ECHEC_FORMAT);
    for (const char* const name : {"pipe", "folder", "loose", "a/b"})
        EXPECT_EQ(grx_ecrit_image(path(name).c_str(), written.get(), GRX_IMAGE_PNG), GRX_ECHEC_FICHIER) << name;
    EXPECT_EQ(grx_ecrit_image("", written.get(), GRX_IMAGE_PNG), GRX_ECHEC_FICHIER);
}

TEST_F(ImageFilesTest, RecordsThatAreNoneAreRefused) {
    Image image;
    make_random(image, 2, 2, 3);
    EXPECT_EQ(grx_lit_image(path("x").c_str(), image.get()), GRX_ECHEC_PARAMETRE) << "its pixels would be lost";
    EXPECT_EQ(grx_cree_image(image.get()), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_ecrit_image(path("x").c_str(), image.get(), 3), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_ecrit_image(nullptr, image.get(), 1), GRX_ECHEC_PARAMETRE);
    for (const INT bytes : {0, 1, 2, 5, -1}) {
        image->octets_par_pixel = bytes;
        EXPECT_EQ(grx_ecrit_image(path("x").c_str(), image.get(), 1), GRX_ECHEC_PARAMETRE) << bytes;
    }
    image->octets_par_pixel = 3;
    Image places;
    make_random(places, 2, 2, 1, 200);
    places->pixels[3] = 200;
    EXPECT_EQ(grx_ecrit_image(path("x").c_str(), places.get(), 1), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(entries(), 0U);
    EXPECT_EQ(grx_libere_image(nullptr), GRX_ECHEC_PARAMETRE);
    Image large;
    large->largeur = large->hauteur = 50000;
    large->octets_par_pixel = 3;
    EXPECT_EQ(grx_cree_image(large.get()), GRX_ECHEC_MEMOIRE);
}

TEST_F(ImageFilesTest, EachFailingAllocationIsAnswered) {
    for (const Form& form : kForms) {
        write_random(form.name, 9, 6, form.bytes, form.colours);
        const NoLeak no_leak;
        const int reading = fail_each_allocation([&] {
            Image read(4);
            const INT result = grx_lit_image(path(form.name).c_str(), read.get());
            EXPECT_TRUE(result == (heap().failed() ? GRX_ECHEC_MEMOIRE : 1)) << form.name << " " << result;
        });
        EXPECT_GT(reading, 1);
        Image image;
        make_random(image, 9, 6, form.bytes, form.colours);
        fail_each_allocation([&] {
            const INT result = grx_ecrit_image(path(form.name).c_str(), image.get(), GRX_IMAGE_SELON_NOM);
            EXPECT_TRUE(result == (heap().failed() ? GRX_ECHEC_MEMOIRE : 1)) << form.name << " " << result;
        });
        fail_each_allocation([&] {
            Image read;
            const INT number = grx_ouvre_image(path(form.name).c_str(), read.get());
            EXPECT_TRUE(number == 1 || number == GRX_ECHEC_MEMOIRE);
            if (number == 1) EXPECT_EQ(grx_ferme_image(number), 1);
        });
    }
    EXPECT_EQ(entries(), 2U);
}

TEST_F(ImageFilesTest, FiveHundredRoundsLeaveNothing) {
    write_random("a.png", 30, 20, 4);
    const NoLeak no_leak;
    const auto descriptors = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    const auto before = descriptors();
    for (int i = 0; i < 500; ++i) {
        Image image;
        ASSERT_EQ(grx_lit_image(path("a.png").c_str(), image.get()), 1);
        ASSERT_EQ(grx_ecrit_image(path(i % 2 ? "b.png" : "b.bmp").c_str(), image.get(), 0), 1);
        ASSERT_EQ(grx_ouvre_ecriture_image(path("c.png").c_str(), image.get(), 0), 1);
        ASSERT_EQ(grx_ecrit_bande_image(1, 10, image->pixels), 1);
        ASSERT_EQ(i % 2 ? grx_ferme_image(1) : grx_abandonne_image(1), i % 2 ? GRX_ECHEC_ABSENT : 1);
    }
    EXPECT_EQ(descriptors(), before);
    EXPECT_EQ(entries(), 3U);
}

// --- whole or absent -----------------------------------------------------------------------------------------

class FileLimit {
  public:
    explicit FileLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

  private:
    rlimit before_{};
};

TEST_F(ImageFilesTest, AFileThatDoesNotFitLeavesTheOldOne) {
    for (const char* const name : {"a.png", "a.bmp"}) {
        folder_.write(name, "old");
        Image image;
        make_random(image, 200, 200, 3);
        for (const rlim_t most : {rlim_t{0}, rlim_t{20}, rlim_t{5000}, rlim_t{100000}}) {
            const FileLimit limit(most);
            EXPECT_EQ(grx_ecrit_image(path(name).c_str(), image.get(), 0), GRX_ECHEC_FICHIER) << most;
            EXPECT_EQ(bytes_of(name), "old");
        }
    }
    EXPECT_EQ(entries(), 2U) << "temporary files stay";
}

TEST_F(ImageFilesTest, AFullDiskIsAnswered) {
    if (access("/dev/full", W_OK) != 0) GTEST_FAIL();
    Image image;
    make_random(image, 4, 4, 3);
    EXPECT_EQ(grx_ecrit_image("/dev/full", image.get(), 0), GRX_ECHEC_FICHIER) << "no regular file";
    EXPECT_EQ(grx_ecrit_image("/proc/picture.png", image.get(), 0), GRX_ECHEC_FICHIER);
}

TEST_F(ImageFilesTest, TheTargetIsTouchedAtTheEndOnly) {
    folder_.write("a.png", "old");
    chmod(path("a.png").c_str(), 0640);
    ASSERT_EQ(symlink("a.png", path("link.png").c_str()), 0);
    Image image;
    make_random(image, 20, 20, 3);
    const INT number = grx_ouvre_ecriture_image(path("link.png").c_str(), image.get(), 0);
    ASSERT_EQ(number, 1);
    ASSERT_EQ(grx_ecrit_bande_image(number, 20, image->pixels), 1);
    EXPECT_EQ(bytes_of("a.png"), "old");
    ASSERT_EQ(grx_ferme_image(number), 1);
    EXPECT_TRUE(std::filesystem::is_symlink(path("link.png")));
    struct stat status {};
    ASSERT_EQ(stat(path("a.png").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
    Image read;
    ASSERT_EQ(grx_lit_image(path("a.png").c_str(), read.get()), 1);
    EXPECT_EQ(read.rows(), image.rows());
    const INT partial = grx_ouvre_ecriture_image(path("b.png").c_str(), image.get(), 0);
    ASSERT_EQ(grx_ecrit_bande_image(partial, 19, image->pixels), 1);
    EXPECT_EQ(grx_ferme_image(partial), GRX_ECHEC_ABSENT);
    EXPECT_EQ(entries(), 2U);
}

} // namespace
