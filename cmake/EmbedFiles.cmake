# Writes OUTPUT, a source file that holds each dialog template and picture of FOLDER, and each catalogue of TRANSLATIONS,
# as an array of bytes.
file(GLOB FILES "${FOLDER}/*.xrc" "${FOLDER}/*.svg" "${TRANSLATIONS}/*.mo")
set(arrays "")
set(table "")
set(number 0)
foreach(file IN LISTS FILES)
  file(READ "${file}" bytes HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
  get_filename_component(name "${file}" NAME)
  string(APPEND arrays "constexpr unsigned char file${number}[] = {${bytes}};\n")
  string(APPEND table "    {\"${name}\", file${number}, sizeof file${number}},\n")
  math(EXPR number "${number} + 1")
endforeach()
file(WRITE "${OUTPUT}" "#include \"resources/EmbeddedFile.h\"

namespace TessaronResources::resources
{

namespace
{

${arrays}
constexpr EmbeddedFile files[] = {
${table}};

} // namespace

const EmbeddedFile* findEmbeddedFile(std::string_view name)
{
    for (const EmbeddedFile& file : files)
        if (name == file.name)
            return &file;
    return nullptr;
}

std::span<const EmbeddedFile> embeddedFiles()
{
    return files;
}

} // namespace TessaronResources::resources
")
