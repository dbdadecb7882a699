#!/usr/bin/env python3
"""Checks the tree against rules.py: tidy.py ROOT. Prints file:line: what (why); status 1 when there is a finding."""

import sys

from project import Project
from rules import RULES


def main():
    project = Project.read(sys.argv[1])
    findings = [finding for rule in RULES for finding in rule(project)]
    for finding in findings:
        print(finding)
    print(f"{len(project.files)} files, {len(RULES)} rules, {len(findings)} findings")
    return 1 if findings or not project.cpp else 0


if __name__ == "__main__":
    sys.exit(main())
