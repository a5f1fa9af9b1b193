# Nobody in the roster: the box says so, and the case that is drawn all the same finds no person.
@table tblPatients
@start fault 9
new kim Plain 0x9 0 0.5x3 | box.title = No patient information available | patientCount = 0
box = conduct tests only
answer OK
