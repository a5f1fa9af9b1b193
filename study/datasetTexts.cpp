#include "study/datasetTexts.h"

#include <fmt/format.h>

#include "study/simulated.h"

namespace datasetTexts {

namespace {

constexpr const char* readme = R"(# {0}

{1}

## Files

`data/` has a CSV file for each table, in UTF-8, with the names of the columns in the first line, and beside each a file
of the same name that ends in `.json` with its part of the dictionary. `dataset_description.json` has all of it.

| File | A row is |
|---|---|
| `trials` | a patient: options of the scenario, hidden truth and outcome. Begin here |
| `events` | an action of a subject, with its seconds and the beliefs in force |
| `SubjectInfo`, `SubjectSettings` | a subject; a subject in a scenario, with the words as they were dealt |
| `dataTrial`, `dataEvents` | the raw rows behind `trials` and `events`, in the same order |
| `dataGetTests`, `dataGetSymptoms`, `dataHypotheses`, `dataTreatments` | a detail of an event, by `EventID` |
| `dataHypothesisState` | a state of belief, by `StateID`, which is the `DiagnosisID` of events |

`materials/tables` holds the configuration of the study, `materials/replaced` what was replaced; `CHANGES.md` says when.

## Before you count

- Nothing between two commas is an empty value: "not written". It is not 0. Two quotes are an empty text, which was
  written. The dictionary says of each column what an empty field means. `documentation/reading.md` shows how to keep
  the two apart.
- Columns of digits that are texts (`findings`, `TestResults`) have to be read as text, or they lose their zeros.
- Subjects are one whatever the case of their names. Subject and number make a trial (`subject_id`, `trial_id`);
  a number that stands twice is told by `valid` as "repeated case".
- `valid` of `trials` is "yes", or says why the row needs care.
)";

constexpr const char* reading = R"text(# Reading the files

Most readers take an empty value and an empty text for the same. In Python this keeps them apart, None and "", and reads
each field as text, so that digits keep their zeros:

    import re

    def read(path):
        rows, row = [], []
        text = open(path, encoding="utf-8", newline="").read()
        for field in re.finditer(r'(?:"((?:[^"]|"")*)"|([^",\n]*))(,|\n)', text):
            quoted, plain, end = field.groups()
            row.append((plain or None) if quoted is None else quoted.replace('""', '"'))
            if end == "\n":
                rows.append(row)
                row = []
        return [dict(zip(rows[0], row)) for row in rows[1:]]

In R, with the package data.table:

    data.table::fread(path, na.strings = "", colClasses = "character")
)text";

}  // namespace

std::string description(const Told& told) {
    std::string text =
        "Decisions under time pressure: subjects in the role of a doctor treat simulated patients while a "
        "simulated clock runs and the patient's health wanders downward. They note symptoms, issue tests, "
        "state beliefs in diseases and prescribe treatments.";
    if (told.simulated)
        text += fmt::format(" These are {}, played by tavix-pilot; no conclusion about people rests on them.",
                            simulated::called);
    if (told.pseudonyms) text += " Pseudonyms stand in the place of the subjects' names.";
    if (told.textsOut) text += " What subjects wrote in words of their own is left out.";
    return text;
}

std::string changes(const std::vector<keptTables::Kept>& kept) {
    std::string text =
        "# Changes\n\n## 1.0.0\n\nThe first version of this dataset.\n\n## The study's tables\n\n";
    if (kept.empty()) return text + "None was replaced: all rows ran under `materials/tables`.\n";
    for (const keptTables::Kept& one : kept)
        text += fmt::format("- {}: {} was replaced; until then `materials/replaced/{}.csv` was in force.\n",
                            one.date, one.table, one.name);
    return text;
}

std::vector<std::pair<std::string, std::string>> files(const Told& told) {
    return {
        {"README.md", fmt::format(readme, told.name, description(told))},
        {"documentation/reading.md", reading},
        {"analysis/README.md", "Scripts that read `data/` belong here.\n"},
        {"results/README.md", "What the scripts of `analysis/` make belongs here.\n"},
        {"data/file_metadata.json",
         "{\n  \"@context\": \"https://schema.org/\",\n  \"@type\": \"Dataset\",\n  \"inLanguage\": "
         "\"en\"\n}\n"},
        {".psychdsignore", "materials/\ndocumentation/\nanalysis/\nresults/\n"},
    };
}

}  // namespace datasetTexts
