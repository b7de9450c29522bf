"""Holds JSON files against a schema, and the schema against its own: validate_json.py SCHEMA FILE..."""

import json
import sys

import jsonschema

with open(sys.argv[1], encoding="utf-8") as file:
    schema = json.load(file)
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)
failed = False
for name in sys.argv[2:]:
    with open(name, encoding="utf-8") as file:
        instance = json.load(file)
    for error in validator.iter_errors(instance):
        failed = True
        print(f"{name}: {error.json_path}: {error.message}")
sys.exit(1 if failed else 0)
