# Writes OUTPUT, a C++ source that holds the bytes of INPUT:
#   extern const unsigned char kEmbeddedSample[]; extern const std::size_t kEmbeddedSampleSize;
# Run with cmake -DINPUT=... -DOUTPUT=... -P embed_file.cmake.
file(READ "${INPUT}" hex HEX)
string(LENGTH "${hex}" hex_length)
math(EXPR size "${hex_length} / 2")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
string(REGEX REPLACE "((0x[0-9a-f][0-9a-f],){16})" "\\1\n" bytes "${bytes}")
file(WRITE "${OUTPUT}.tmp"
  "// Generated from ${INPUT}; do not edit.\n"
  "#include <cstddef>\n\n"
  "namespace persona {\n"
  "extern const unsigned char kEmbeddedSample[];\n"
  "extern const std::size_t kEmbeddedSampleSize;\n"
  "const unsigned char kEmbeddedSample[] = {\n${bytes}0};\n"
  "const std::size_t kEmbeddedSampleSize = ${size};\n"
  "}  // namespace persona\n")
file(RENAME "${OUTPUT}.tmp" "${OUTPUT}")
