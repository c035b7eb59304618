#include "host/plugin/elf_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <gelf.h>
#include <memory>
#include <string_view>
#include <unistd.h>

namespace kelmora_host {

namespace {

struct ElfEnd {
    void operator()(Elf *elf) const { elf_end(elf); }
};

/// A file that is open as long as this lives.
class OpenFile {
public:
    explicit OpenFile(const std::filesystem::path &path) : descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC))
    {
        if (descriptor_ < 0)
            throw ElfError(std::strerror(errno));
    }
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;
    ~OpenFile() { close(descriptor_); }

    [[nodiscard]] int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

/// Of a result of libelf's that is NULL when the file does not hold what it says.
template <class T> T *there(T *result)
{
    if (result == nullptr)
        throw ElfError(std::string("it is damaged: ") + elf_errmsg(-1));
    return result;
}

/// What is looked at of a file, and what is found of it.
class Reader {
public:
    explicit Reader(const std::filesystem::path &path) : file_(path)
    {
        elf_version(EV_CURRENT);
        elf_.reset(elf_begin(file_.descriptor(), ELF_C_READ, nullptr));
        if (elf_kind(elf_.get()) != ELF_K_ELF)
            throw ElfError("it is no ELF file");
        GElf_Ehdr header;
        there(gelf_getehdr(elf_.get(), &header));
        found_.machine = {gelf_getclass(elf_.get()) == ELFCLASS64 ? 64 : 32, header.e_ident[EI_DATA] == ELFDATA2MSB,
                          header.e_machine};
    }

    ElfFile read()
    {
        look_at_segments();
        look_at_dynamic_section();
        look_at_symbols();
        look_at_relocations();
        look_at_writable_sections();
        return std::move(found_);
    }

private:
    template <class Look> void each_section(Look look)
    {
        for (Elf_Scn *section = elf_nextscn(elf_.get(), nullptr); section != nullptr;
             section = elf_nextscn(elf_.get(), section)) {
            GElf_Shdr header;
            look(section, *there(gelf_getshdr(section, &header)));
        }
    }

    /// What entries of a section have in common: their bytes, and how many they are.
    struct Entries {
        Elf_Data *data;
        int count;
    };

    static Entries entries_of(Elf_Scn *section, const GElf_Shdr &header)
    {
        return {there(elf_getdata(section, nullptr)),
                header.sh_entsize == 0 ? 0 : static_cast<int>(header.sh_size / header.sh_entsize)};
    }

    std::string text_at(std::size_t section, std::size_t offset)
    {
        return there(elf_strptr(elf_.get(), section, offset));
    }

    void look_at_segments()
    {
        std::size_t count = 0;
        elf_getphdrnum(elf_.get(), &count);
        found_.has_executable_stack = true;
        for (int i = 0; i < static_cast<int>(count); ++i) {
            GElf_Phdr segment;
            there(gelf_getphdr(elf_.get(), i, &segment));
            if (segment.p_type == PT_GNU_STACK)
                found_.has_executable_stack = (segment.p_flags & PF_X) != 0;
        }
    }

    void look_at_dynamic_section()
    {
        bool found = false;
        each_section([&](Elf_Scn *section, const GElf_Shdr &header) {
            if (header.sh_type != SHT_DYNAMIC)
                return;
            found = true;
            const Entries entries = entries_of(section, header);
            for (int i = 0; i < entries.count; ++i) {
                GElf_Dyn entry;
                there(gelf_getdyn(entries.data, i, &entry));
                look_at(entry, header.sh_link);
            }
        });
        if (!found)
            throw ElfError("it has no table of its sections, or no section for the loader");
    }

    void look_at(const GElf_Dyn &entry, std::size_t strings)
    {
        const GElf_Xword value = entry.d_un.d_val;
        switch (entry.d_tag) {
        case DT_NEEDED:
            found_.needed.push_back(text_at(strings, value));
            break;
        case DT_SONAME:
            found_.soname = text_at(strings, value);
            break;
        case DT_JMPREL:
            lazy_relocations_ = value;
            break;
        case DT_BIND_NOW:
            found_.binds_now = true;
            break;
        case DT_TEXTREL:
            found_.has_text_relocations = true;
            break;
        case DT_FLAGS:
            found_.binds_now |= (value & DF_BIND_NOW) != 0;
            found_.has_text_relocations |= (value & DF_TEXTREL) != 0;
            break;
        case DT_FLAGS_1:
            found_.binds_now |= (value & DF_1_NOW) != 0;
            break;
        default:
            break;
        }
    }

    void look_at_symbols()
    {
        each_section([&](Elf_Scn *section, const GElf_Shdr &header) {
            if (header.sh_type != SHT_DYNSYM)
                return;
            const Entries entries = entries_of(section, header);
            for (int i = 1; i < entries.count; ++i) {
                GElf_Sym symbol;
                there(gelf_getsym(entries.data, i, &symbol));
                const std::string name = text_at(header.sh_link, symbol.st_name);
                if (GELF_ST_BIND(symbol.st_info) == STB_LOCAL || name.empty())
                    continue;
                if (symbol.st_shndx != SHN_UNDEF)
                    found_.exports.push_back(name);
                else // on MIPS the address of an import is that of the stub which binds it
                    found_.imports.push_back({name, symbol.st_value != 0});
            }
        });
        std::ranges::sort(found_.exports);
        std::ranges::sort(found_.imports, {}, &ElfImport::name);
    }

    void look_at_relocations()
    {
        each_section([&](Elf_Scn *section, const GElf_Shdr &header) {
            const bool with_addend = header.sh_type == SHT_RELA;
            if ((!with_addend && header.sh_type != SHT_REL) || (header.sh_flags & SHF_ALLOC) == 0)
                return;
            const Entries entries = entries_of(section, header);
            for (int i = 0; i < entries.count; ++i) {
                GElf_Rela relocation{};
                if (with_addend) {
                    there(gelf_getrela(entries.data, i, &relocation));
                } else {
                    GElf_Rel short_relocation;
                    there(gelf_getrel(entries.data, i, &short_relocation));
                    relocation.r_info = short_relocation.r_info;
                }
                if (GELF_R_TYPE(relocation.r_info) != 0) // 0 does nothing on any machine
                    look_at(symbol_of(header.sh_link, GELF_R_SYM(relocation.r_info)),
                            header.sh_addr == lazy_relocations_);
            }
        });
    }

    /// The name of the symbol that a relocation is about, or "".
    std::string symbol_of(std::size_t table, std::size_t index)
    {
        Elf_Scn *section = elf_getscn(elf_.get(), table);
        GElf_Shdr header;
        if (index == 0 || section == nullptr)
            return "";
        there(gelf_getshdr(section, &header));
        GElf_Sym symbol;
        there(gelf_getsym(there(elf_getdata(section, nullptr)), static_cast<int>(index), &symbol));
        return text_at(header.sh_link, symbol.st_name);
    }

    void look_at(const std::string &relocated, bool lazy)
    {
        if (!lazy)
            found_.relocations.push_back(relocated);
        else if (const auto import = std::ranges::find(found_.imports, relocated, &ElfImport::name);
                 import != found_.imports.end())
            import->lazy = true;
    }

    void look_at_writable_sections()
    {
        static constexpr std::array<std::string_view, 4> the_loaders{".dynamic", ".got", ".got.plt", ".rld_map"};
        std::size_t names = 0;
        elf_getshdrstrndx(elf_.get(), &names);
        each_section([&](Elf_Scn *, const GElf_Shdr &header) {
            if ((header.sh_flags & SHF_WRITE) == 0 || (header.sh_flags & SHF_ALLOC) == 0 || header.sh_size == 0)
                return;
            const std::string name = text_at(names, header.sh_name);
            if (std::ranges::find(the_loaders, name) == the_loaders.end())
                found_.writable.push_back({name, header.sh_size});
        });
    }

    OpenFile file_;
    std::unique_ptr<Elf, ElfEnd> elf_;
    ElfFile found_{};
    GElf_Addr lazy_relocations_ = 0; ///< where those are that wait for the first call
};

} // namespace

bool can_read_elf_files() { return true; }

ElfFile read_elf_file(const std::filesystem::path &path) { return Reader(path).read(); }

} // namespace kelmora_host
