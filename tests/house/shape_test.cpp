#include "house/shape.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "house/code_scan.h"

namespace marvolin::house {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Shape, AFolderHoldsAtMostTwentyFiveSubjects) { EXPECT_THAT(FoldersTooFull(Sources(), 25), IsEmpty()); }

TEST(Shape, FilesAreShort) {
    EXPECT_LT(MedianLines(Sources()), 60);
    EXPECT_THAT(FilesTooLong(Sources(), 300), IsEmpty());
}

TEST(Shape, NoFunctionIsLongerThanFiftyLines) {
    std::size_t functions = 0;
    for (const auto& [file, text] : Sources()) functions += FunctionsOf(text).size();
    EXPECT_GT(functions, 1000U);
    EXPECT_THAT(FunctionsTooLong(Sources(), 50), IsEmpty());
}

TEST(Shape, AHeaderIsImplementedInTheSourceOfItsName) {
    EXPECT_THAT(HeadersImplementedElsewhere(Sources()), IsEmpty());
}

TEST(ShapeCheck, AHeaderAndItsSourceAreOneSubject) {
    const Tree tree{{"core/a.h", ""}, {"core/a.cpp", ""}, {"core/b.h", ""}, {"core/in/c.h", ""}, {"main.cpp", ""}};
    EXPECT_THAT(FoldersTooFull(tree, 2), IsEmpty());
    EXPECT_THAT(FoldersTooFull(tree, 1), ElementsAre("core: 2 subjects"));
}

TEST(ShapeCheck, CountsTheLinesOfFiles) {
    const Tree tree{{"a.h", "1\n"}, {"b.h", "1\n2\n3\n"}, {"c.h", "1\n2\n"}};
    EXPECT_EQ(MedianLines(tree), 2);
    EXPECT_THAT(FilesTooLong(tree, 2), ElementsAre("b.h: 3 lines"));
}

TEST(ShapeCheck, AFunctionCountsWithItsSignature) {
    const Tree tree{{"a.cpp", "namespace {\n\nvoid Long(int a,\n          int b) {\n    a = b;\n}\n\n}\n"}};
    EXPECT_THAT(FunctionsTooLong(tree, 4), IsEmpty());
    EXPECT_THAT(FunctionsTooLong(tree, 3), ElementsAre("a.cpp: Long has 4 lines"));
}

TEST(ShapeCheck, ReportsASourceWithoutItsHeader) {
    EXPECT_THAT(HeadersImplementedElsewhere({{"core/a.cpp", "#include \"core/b.h\"\nvoid B() {}\n"},
                                             {"core/b.h", "inline void C() {}\n"},
                                             {"main.cpp", "int main() {}\n"}}),
                ElementsAre("core/a.cpp: has no header of its name"));
}

TEST(ShapeCheck, ReportsASourceThatIncludesAnotherHeaderFirst) {
    EXPECT_THAT(HeadersImplementedElsewhere({{"core/a.cpp", "#include <vector>\n#include \"core/a.h\"\nvoid A() {}\n"},
                                             {"core/a.h", "void A();\n"}}),
                ElementsAre("core/a.cpp: does not include its own header first"));
}

TEST(ShapeCheck, ReportsAHeaderThatDeclaresFunctionsAndHasNoSource) {
    EXPECT_THAT(HeadersImplementedElsewhere({{"core/a.h", "void A();\n"},
                                             {"core/b.h", "class B {\n    void Member();\n};\n"},
                                             {"core/c.h",
                                              "class C {\n    virtual void F() = 0;\n    std::function<void(int)> On;\n"
                                              "    C(const C&) = delete;\n    C& operator=(const C&) = delete;\n    "
                                              "friend bool operator==(const C&, const C&) = "
                                              "default;\n    int x = Make(3);\n};\nstatic_assert(sizeof(C) > 0);\n"
                                              "inline int D(int a = 2) { return a; }\nusing F = void (*)(int);\n"}}),
                ElementsAre("core/a.h: declares A and has no source", "core/b.h: declares Member and has no source"));
}

TEST(ShapeCheck, ReportsADefinitionThatBelongsToAnotherHeader) {
    const std::string source =
        "#include \"core/a.h\"\nnamespace marvolin {\nnamespace {\nvoid Helper() {}\nstruct Local {\n    void In();\n};"
        "\n}\nstatic void Own() {}\nvoid Local::In() {}\nvoid A() {}\nvoid B() {}\nvoid K::M() {}\nvoid L::M() {}\n}\n";
    EXPECT_THAT(HeadersImplementedElsewhere({{"core/a.cpp", source}, {"core/a.h", "void A();\nclass K;\n"}}),
                ElementsAre("core/a.cpp: defines B, which its header does not declare",
                            "core/a.cpp: defines L::M, which its header does not declare"));
}

std::vector<std::string> Names(const std::string& text) {
    std::vector<std::string> names;
    for (const Function& function : FunctionsOf(text)) names.push_back(function.Name);
    return names;
}

TEST(CodeScan, FindsFunctionsWithTheirLines) {
    EXPECT_THAT(FunctionsOf("namespace a::b {\nint F(int x) {\n    return x;\n}\nint G();\n}\n"),
                ElementsAre(Function{"F", 2, 3, false, false}, Function{"G", 5, 0, false, false}));
    EXPECT_THAT(FunctionsOf("class A : public B {\npublic:\n    explicit A(int x) : B(x), y_{x} {\n    }\n};\n"),
                ElementsAre(Function{"A", 3, 2, true, false}));
    EXPECT_THAT(FunctionsOf("namespace {\nvoid F() {}\n}\nstatic void G() {}\n"),
                ElementsAre(Function{"F", 2, 1, false, true}, Function{"G", 4, 1, false, true}));
}

TEST(CodeScan, IsNotMisledByWordsLiteralsAndMacros) {
    EXPECT_THAT(Names("// void F() {\n/* void G() {\n*/ void H() { Say(\"}\", '}', R\"(\n}\"})\"); }\n#define K { \\\n"
                      "  {\nint Digits() { return 1'000; }\n"),
                ElementsAre("H", "Digits"));
}

TEST(CodeScan, TakesInitialisersAndTypesForNoFunctions) {
    EXPECT_THAT(Names("constexpr Rule kRules[] = {{\"All\", [](int a) { return a > 0; }}};\n"
                      "enum class E : int { A, B };\nstruct S {\n    std::function<void(int)> on{};\n"
                      "    int table[2]{{1}, {2}};\n    bool (*rule)(int);\n} s;\nconst auto later = [](int x) {\n    "
                      "return x;\n};\n"),
                IsEmpty());
}

TEST(CodeScan, KnowsMembersOperatorsTemplatesAndDestructors) {
    EXPECT_THAT(Names("A::A(int x)\n    : x_(x), y_{x, [] { return 1; }()} {\n    Go();\n}\nA::~A() = default;\n"
                      "B::~B() { Go(); }\nbool operator==(A a, A b) { return a < b; }\n"
                      "template <typename T, typename... U>\nauto Make(U&&... u) -> std::unique_ptr<T> { return {}; }\n"
                      "std::map<int, void (*)()> Table() { return {}; }\n"),
                ElementsAre("A::A", "B::~B", "operator==", "Make", "Table"));
}

}  // namespace
}  // namespace marvolin::house
